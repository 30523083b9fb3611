#include "raw_inflate.h"

#include <gtest/gtest.h>

#include <zlib.h>

namespace quarlin {

std::vector<std::uint8_t> rawInflate(QByteArrayView stream, std::size_t size, bool ended) {
    std::vector<std::uint8_t> output(size + 16);
    z_stream state{};
    EXPECT_EQ(inflateInit2(&state, -15), Z_OK);
    state.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(stream.data()));
    state.avail_in = static_cast<uInt>(stream.size());
    state.next_out = output.data();
    state.avail_out = static_cast<uInt>(output.size());
    EXPECT_EQ(inflate(&state, Z_SYNC_FLUSH), ended ? Z_STREAM_END : Z_OK);
    EXPECT_EQ(state.avail_in, 0U);
    output.resize(state.total_out);
    inflateEnd(&state);
    return output;
}

}  // namespace quarlin
