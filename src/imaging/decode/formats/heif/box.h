#pragma once

#include <QByteArray>

#include <optional>
#include <string_view>

namespace quarlin {

/// A run of bytes of a file.
struct ByteRange {
    qsizetype begin = 0;
    qsizetype end = 0;

    qsizetype size() const { return end - begin; }
};

/// One of the boxes that a HEIC or AVIF file consists of.
struct Box {
    std::string_view type;
    /// Where the box begins.
    qsizetype begin = 0;
    /// What follows its size and type.
    ByteRange content;
};

/// The box that begins at `range.begin`; nothing if it is not well-formed or does not fit into `range`.
std::optional<Box> boxAt(const QByteArray& file, ByteRange range);

/// Calls `visit` for each of the boxes that fill `range`; false if they don't, or once `visit` returns false.
template <typename Visit>
bool visitBoxes(const QByteArray& file, ByteRange range, const Visit& visit) {
    while (range.begin < range.end) {
        const std::optional<Box> box = boxAt(file, range);
        if (!box || !visit(*box)) {
            return false;
        }
        range.begin = box->content.end;
    }
    return true;
}

/// The boxes inside a "meta" box, whose content begins with a version; nothing if there is no room for that.
std::optional<ByteRange> boxesOfMeta(const Box& meta);

}  // namespace quarlin
