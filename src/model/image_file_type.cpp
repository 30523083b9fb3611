#include "model/image_file_type.h"

#include <QStringList>

namespace quarlin {

using namespace Qt::StringLiterals;

bool isImageExtension(const QString& extension) {
    const QString lower = extension.toLower();
    for (const ImageFileType type : allCases<ImageFileType>()) {
        if (extensions(type).split(u' ').contains(lower)) {
            return true;
        }
    }
    return lower == u"webp"_s || lower == u"avif"_s;
}

}  // namespace quarlin
