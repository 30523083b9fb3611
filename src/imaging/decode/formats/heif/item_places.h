#pragma once

#include <QByteArray>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace quarlin {

/// An image, or a part of one, of a HEIC or AVIF file.
struct HeifItem {
    /// Four letters: "hvc1" for HEVC, "av01" for AV1.
    QByteArray type;
    /// Its data; nothing if some are not in the file.
    std::optional<QByteArray> data;
};

/// The items of the file by their numbers. Nothing if the boxes that list them end too early.
std::optional<std::map<std::uint32_t, HeifItem>> heifItems(const QByteArray& file);

/// The bytes of the number that precedes each unit of HEVC, 1...4.
int hevcLengthSize(const QByteArray& file);

}  // namespace quarlin
