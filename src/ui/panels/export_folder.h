#pragma once

namespace quarlin {

class ToolStore;

/// Opens the folder of the last export of `store` in the desktop's file manager. If that fails, or the folder
/// is gone, the log of `store` says so. Without an export nothing happens.
void openExportFolder(ToolStore& store);

}  // namespace quarlin
