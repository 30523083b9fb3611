#include "imaging/decode/formats/heif_boxes.h"

#include <QtEndian>

#include <array>
#include <cstdint>
#include <string_view>

namespace quarlin {

namespace {

/// A run of bytes of the file.
struct Range {
    qsizetype begin = 0;
    qsizetype end = 0;

    qsizetype size() const { return end - begin; }
};

struct Box {
    std::string_view type;
    /// Where the box begins.
    qsizetype begin = 0;
    /// What follows its size and type.
    Range content;
};

/// The box that begins at `range.begin`; nothing if it is not well-formed or does not fit into `range`.
std::optional<Box> boxAt(const QByteArray& file, Range range) {
    constexpr qsizetype shortHead = 8;
    constexpr qsizetype longHead = 16;
    constexpr std::uint64_t toTheEnd = 0;
    constexpr std::uint64_t hasLongSize = 1;
    if (range.size() < shortHead) {
        return std::nullopt;
    }
    const char* head = file.constData() + range.begin;
    std::uint64_t size = qFromBigEndian<std::uint32_t>(head);
    qsizetype headSize = shortHead;
    if (size == hasLongSize) {
        if (range.size() < longHead) {
            return std::nullopt;
        }
        size = qFromBigEndian<std::uint64_t>(head + shortHead);
        headSize = longHead;
    } else if (size == toTheEnd) {
        size = static_cast<std::uint64_t>(range.size());
    }
    if (size < static_cast<std::uint64_t>(headSize) || size > static_cast<std::uint64_t>(range.size())) {
        return std::nullopt;
    }
    return Box{
        {head + 4, 4}, range.begin, {range.begin + headSize, range.begin + static_cast<qsizetype>(size)}};
}

/// Calls `visit` for each of the boxes that fill `range`; false if they don't, or once `visit` returns false.
template <typename Visit>
bool visitBoxes(const QByteArray& file, Range range, const Visit& visit) {
    while (range.begin < range.end) {
        const std::optional<Box> box = boxAt(file, range);
        if (!box || !visit(*box)) {
            return false;
        }
        range.begin = box->content.end;
    }
    return true;
}

/// Whether a crop ("clap") divides by nothing: it consists of four fractions of 32-bit numbers.
bool isUsableCrop(const QByteArray& file, Range content) {
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
bool resetOrientation(QByteArray& file, Range properties) {
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
    constexpr qsizetype versionAndFlags = 4;
    const QByteArray original = file;
    const auto resetOrientations = [&](const Box& meta) {
        const Range content{meta.content.begin + versionAndFlags, meta.content.end};
        return content.size() > 0 && visitBoxes(original, content, [&](const Box& part) {
                   return part.type != "iprp" || visitBoxes(original, part.content, [&](const Box& list) {
                              return list.type != "ipco" || resetOrientation(file, list.content);
                          });
               });
    };
    bool hasImages = false;
    Range rest{0, original.size()};
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
