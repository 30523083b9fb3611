#include "model/texture_asset.h"

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

TextureAsset::TextureAsset(QUrl fileUrl, QString name, std::int64_t width, std::int64_t height, QImage image)
    : id(QUuid::createUuid()),
      url(std::move(fileUrl)),
      fileName(std::move(name)),
      pixelWidth(width),
      pixelHeight(height),
      preview(std::move(image)) {}

QString TextureAsset::sizeLabel() const {
    return QString::number(pixelWidth) + u'x' + QString::number(pixelHeight);
}

QString TextureAsset::valueNote() const {
    return convertedFrom.isEmpty()
               ? QString()
               : u"The values were converted from \""_s + convertedFrom + u"\" to sRGB."_s;
}

}  // namespace quarlin
