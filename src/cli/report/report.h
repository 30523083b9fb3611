#pragma once

#include "model/export_result.h"

#include <QString>

namespace quarlin {

/// The path of the set's folder, without a slash at the end.
QString folderPath(const ExportResult& result);

/// What an export wrote: a line for the folder and one for each file.
QString textReport(const ExportResult& result);

/// The same as one line of JSON: an object with "folder" and "files".
QString jsonReport(const ExportResult& result);

}  // namespace quarlin
