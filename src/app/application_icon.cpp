#include "application_icon.h"

#include <QDirIterator>

namespace quarlin {

QIcon applicationIcon() {
    QIcon icon;
    QDirIterator pictures(QStringLiteral(":/application-icon"), {QStringLiteral("*.png")}, QDir::Files,
                          QDirIterator::Subdirectories);
    while (pictures.hasNext()) {
        icon.addFile(pictures.next());
    }
    return icon;
}

}  // namespace quarlin
