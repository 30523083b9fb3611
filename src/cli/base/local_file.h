#pragma once

#include <QString>
#include <QUrl>

namespace quarlin {

/// The absolute location of `path`, which may be relative to the working directory. ".." is resolved as the
/// file system does it: after a link, it is the parent of the folder that the link leads to.
QUrl localFile(const QString& path);

}  // namespace quarlin
