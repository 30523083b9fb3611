#include "cli/base/local_file.h"

#include <QDir>
#include <QFileInfo>

namespace quarlin {

QUrl localFile(const QString& path) {
    return QUrl::fromLocalFile(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
}

}  // namespace quarlin
