#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <vector>

namespace quarlin {

/// Inflates a raw deflate stream of about `size` bytes with zlib. Expects that all input is consumed, and
/// that the end of the stream is reached if and only if `ended`.
std::vector<std::uint8_t> rawInflate(QByteArrayView stream, std::size_t size, bool ended);

}  // namespace quarlin
