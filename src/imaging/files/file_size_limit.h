#pragma once

namespace quarlin {

/// Lets a write beyond a limit on file sizes (`ulimit -f`) fail like one to a full disk. Without this, the
/// system ends the process. To be called at the start of a program.
void reportFileSizeLimit();

}  // namespace quarlin
