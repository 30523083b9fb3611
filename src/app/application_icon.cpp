#include "app/application_icon.h"

#include <QDirIterator>

namespace quarlin {

using namespace Qt::StringLiterals;

QIcon applicationIcon() {
    QIcon icon;
    QDirIterator pictures(u":/application-icon"_s, {u"*.png"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (pictures.hasNext()) {
        icon.addFile(pictures.next());
    }
    return icon;
}

}  // namespace quarlin
