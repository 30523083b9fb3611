#pragma once

#include <QString>
#include <QUrl>

namespace quarlin {

/// The absolute location of `path`, which may be relative to the working directory.
QUrl localFile(const QString& path);

}  // namespace quarlin
