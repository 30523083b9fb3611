#include "imaging/decode/formats/heif/orientation.h"

#include "imaging/decode/formats/heif/box.h"

#include <QtEndian>

#include <cstdint>

namespace quarlin {

namespace {

/// Whether a crop ("clap") divides by nothing: it consists of four fractions of 32-bit numbers.
bool isUsableCrop(const QByteArray& file, ByteRange content) {
    constexpr qsizetype fractionSize = 8;
    constexpr qsizetype cropSize = 4 * fractionSize;
    if (content.size() < cropSize) {
        return false;
    }
    for (qsizetype fraction = 0; fraction < cropSize; fraction += fractionSize) {
        if (qFromBigEndian<std::uint32_t>(file.constData() + content.begin + fraction + 4) == 0) {
            return false;
        }
    }
    return true;
}

/// Turns rotation ("irot") and mirroring ("imir") among the properties of images into a rotation by nothing.
bool resetOrientation(QByteArray& file, ByteRange properties) {
    const QByteArray original = file;
    return visitBoxes(original, properties, [&](const Box& box) {
        if (box.type == "irot" || box.type == "imir") {
            if (box.content.size() < 1) {
                return false;
            }
            constexpr qsizetype typePlace = 4;
            file.replace(box.begin + typePlace, 4, "irot");
            file[box.content.begin] = '\0';
        }
        return box.type != "clap" || isUsableCrop(original, box.content);
    });
}

}  // namespace

std::optional<QByteArray> withoutOrientation(QByteArray file) {
    const QByteArray original = file;
    const auto resetOrientations = [&](const Box& meta) {
        const std::optional<ByteRange> content = boxesOfMeta(meta);
        return content && visitBoxes(original, *content, [&](const Box& part) {
                   return part.type != "iprp" || visitBoxes(original, part.content, [&](const Box& list) {
                              return list.type != "ipco" || resetOrientation(file, list.content);
                          });
               });
    };
    bool hasImages = false;
    ByteRange rest{0, original.size()};
    // Other bytes may follow the boxes.
    while (const std::optional<Box> box = boxAt(original, rest)) {
        if ((rest.begin == 0 && box->type != "ftyp") || (box->type == "meta" && !resetOrientations(*box))) {
            return std::nullopt;
        }
        hasImages = hasImages || box->type == "meta";
        rest.begin = box->content.end;
    }
    return hasImages ? std::optional(file) : std::nullopt;
}

}  // namespace quarlin
