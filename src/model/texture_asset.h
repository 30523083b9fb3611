#pragma once

#include "imaging/files/file_stamp.h"
#include "model/texture_slot_kind.h"

#include <QImage>
#include <QString>
#include <QUrl>
#include <QUuid>

#include <cstdint>
#include <map>
#include <optional>

namespace quarlin {

/// One loaded input image. Two loads of the same file are two distinct assets.
struct TextureAsset {
    TextureAsset(QUrl url, QString fileName, std::int64_t pixelWidth, std::int64_t pixelHeight,
                 QImage preview);

    /// Freshly generated for every constructed asset; copies keep it.
    QUuid id;
    /// The file it was loaded from.
    QUrl url;
    /// The file's name with its extension, as shown to the user.
    QString fileName;
    /// The decoded image's size in pixels.
    std::int64_t pixelWidth;
    std::int64_t pixelHeight;
    /// The decoded image at its own size, held in 8-bit gray where it has no color.
    QImage preview;
    /// The channel of the file whose samples are used as they are; nothing for the whole picture.
    std::optional<TextureChannel> channel;
    /// The state of the file from which `preview` was decoded; nothing when `preview` does not come from the
    /// file. While the file has this stamp, `preview` holds its pixels.
    std::optional<FileStamp> decodedFrom;
    /// Whether the samples of the file count as they are, without its color profile or gamma.
    bool keepsSamples = false;
    /// The name of the profile or gamma from which the samples were converted, such as "Dot Gain 20%"; empty
    /// if they count as they are.
    QString convertedFrom = {};

    /// Whether `preview` holds an image. An asset that was only opened has none; an export loads it.
    bool isLoaded() const { return !preview.isNull(); }

    /// The size as shown to the user, such as "2048x1024".
    QString sizeLabel() const;

    /// What the user should know about the values of the texture: that a profile or gamma has changed them.
    /// Empty if there is nothing.
    QString valueNote() const;
};

/// The loaded textures of a material.
using TextureMap = std::map<TextureSlotKind, TextureAsset>;

}  // namespace quarlin
