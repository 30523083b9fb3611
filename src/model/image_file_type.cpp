#include "image_file_type.h"

#include <QStringList>

namespace quarlin {

bool isImageExtension(const QString& extension) {
    const QString lower = extension.toLower();
    for (const ImageFileType type : allCases<ImageFileType>()) {
        if (extensions(type).split(u' ').contains(lower)) {
            return true;
        }
    }
    return lower == QStringLiteral("webp") || lower == QStringLiteral("avif");
}

}  // namespace quarlin
