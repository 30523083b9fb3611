#include "check/embedded_images.h"

#include <QJsonArray>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// A number of bytes; -1 for anything that is not one.
qsizetype sizeOf(const QJsonValue& value, qsizetype fallback) {
    return value.isUndefined() ? fallback : static_cast<qsizetype>(value.toInteger(-1));
}

QJsonObject viewOf(const QJsonObject& gltf, const QJsonObject& image) {
    return gltf[u"bufferViews"_s].toArray().at(image[u"bufferView"_s].toInt(-1)).toObject();
}

QString uriOfBuffer(const QJsonObject& gltf, int index) {
    return gltf[u"buffers"_s].toArray().at(index).toObject()[u"uri"_s].toString();
}

bool isData(const QString& uri) { return uri.startsWith(u"data:"_s, Qt::CaseInsensitive); }

}  // namespace

bool isInBufferFile(const QJsonObject& gltf, const QJsonObject& image) {
    const QString uri = uriOfBuffer(gltf, viewOf(gltf, image)[u"buffer"_s].toInt(-1));
    return !uri.isEmpty() && !isData(uri);
}

std::optional<QByteArray> dataOfUri(const QString& uri) {
    const qsizetype comma = uri.indexOf(u',');
    if (!isData(uri) || comma < 0) {
        return std::nullopt;
    }
    const QByteArray data = uri.mid(comma + 1).toLatin1();
    if (!uri.left(comma).endsWith(u";base64"_s)) {
        return QByteArray::fromPercentEncoding(data);
    }
    const auto decoded = QByteArray::fromBase64Encoding(data, QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(decoded.decoded) : std::nullopt;
}

std::optional<QByteArray> dataOfImage(const QJsonObject& gltf, const QJsonObject& image,
                                      const QByteArray& buffer) {
    const QJsonObject view = viewOf(gltf, image);
    const int index = view[u"buffer"_s].toInt(-1);
    const QString uri = uriOfBuffer(gltf, index);
    const QByteArray bytes = uri.isEmpty() && index == 0 ? buffer : dataOfUri(uri).value_or(QByteArray());
    const qsizetype offset = sizeOf(view[u"byteOffset"_s], 0);
    const qsizetype length = sizeOf(view[u"byteLength"_s], -1);
    if (offset < 0 || length < 0 || offset > bytes.size() || length > bytes.size() - offset) {
        return std::nullopt;
    }
    return bytes.mid(offset, length);
}

}  // namespace quarlin
