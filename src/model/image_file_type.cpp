#include "model/image_file_type.h"

#include <QSet>
#include <QStringList>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QSet<QString> readExtensions() {
    // Formats that are read, but not offered in the file dialogs.
    QSet<QString> found{u"webp"_s, u"avif"_s, u"tga"_s};
    for (const ImageFileType type : allCases<ImageFileType>()) {
        for (const QString& extension : extensions(type).split(u' ')) {
            found.insert(extension);
        }
    }
    return found;
}

}  // namespace

bool isImageExtension(const QString& extension) {
    static const QSet<QString> known = readExtensions();
    return known.contains(extension.toLower());
}

bool isUnreadImageExtension(const QString& extension) {
    static const QSet<QString> known{u"exr"_s,  u"hdr"_s, u"psd"_s, u"psb"_s, u"dds"_s, u"ktx"_s, u"jxl"_s,
                                     u"ktx2"_s, u"jp2"_s, u"jpf"_s, u"xcf"_s, u"pcx"_s, u"rgb"_s, u"sgi"_s};
    return known.contains(extension.toLower());
}

}  // namespace quarlin
