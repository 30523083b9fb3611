#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace quarlin {

/// The bytes of a "data:" URI; nothing if it is not valid.
std::optional<QByteArray> dataOfUri(const QString& uri);

/// Whether an image of a glTF document is in a buffer that is a file of its own.
bool isInBufferFile(const QJsonObject& gltf, const QJsonObject& image);

/// The bytes of an image that is in another buffer: the one of the .glb, `buffer`, or a "data:" URI. Nothing
/// if there is no such buffer, or the image is beyond its end.
std::optional<QByteArray> dataOfImage(const QJsonObject& gltf, const QJsonObject& image,
                                      const QByteArray& buffer);

}  // namespace quarlin
