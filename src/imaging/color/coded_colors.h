#pragma once

#include <QByteArray>

#include <optional>

namespace quarlin {

/// The RGB profile for colors that a file describes by code points of ITU-T H.273: `primaries` is the code of
/// its ColourPrimaries, `transfer` that of its TransferCharacteristics. Light is what the inverse of the
/// encoding curve gives; for PQ, the reference white of 203 cd/m² (ITU-R BT.2408) is white, and what is
/// brighter is clipped. Code 2 ("unspecified") counts as sRGB. Nothing if the colors are sRGB, or if they
/// can't be expressed by primaries and curves (HLG) or are unknown.
std::optional<QByteArray> profileOfCodedColors(int primaries, int transfer);

}  // namespace quarlin
