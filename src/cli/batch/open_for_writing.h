#pragma once

#include <QString>

namespace quarlin {

/// Whether another program has the file at `path` open for writing, as far as the system says so: Linux does
/// for files of the same user.
bool isOpenForWriting(const QString& path);

}  // namespace quarlin
