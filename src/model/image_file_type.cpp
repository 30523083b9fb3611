#include "model/image_file_type.h"

#include <QSet>

#include <array>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Formats that are read, but not offered in the file dialogs. Each has one file name extension.
struct FurtherFormat {
    QLatin1StringView title, extension;
};
constexpr std::array furtherFormats{FurtherFormat{"WebP"_L1, "webp"_L1}, FurtherFormat{"AVIF"_L1, "avif"_L1},
                                    FurtherFormat{"Targa"_L1, "tga"_L1}};

QSet<QString> readExtensions() {
    QSet<QString> found;
    for (const ImageFileType type : allCases<ImageFileType>()) {
        for (const QString& extension : extensions(type).split(u' ')) {
            found.insert(extension);
        }
    }
    for (const FurtherFormat& format : furtherFormats) {
        found.insert(format.extension);
    }
    return found;
}

}  // namespace

QStringList readFormats() {
    QStringList titles;
    for (const ImageFileType type : allCases<ImageFileType>()) {
        titles += title(type);
    }
    for (const FurtherFormat& format : furtherFormats) {
        titles += format.title;
    }
    return titles;
}

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
