#include "imaging/decode/formats/png_chunk_reader.h"
#include "imaging/decode/decode_error.h"
#include "imaging/files/byte_source.h"
#include "imaging/png/png_signature.h"

#include "png_files.h"

#include <QByteArray>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// A source that counts how often it is read.
class CountedBytes final : public ByteSource {
public:
    explicit CountedBytes(QByteArray bytes) : ByteSource(bytes.size()), m_bytes(std::move(bytes)) {}

    void read(std::int64_t offset, std::int64_t count, char* bytes) override {
        ++reads;
        std::copy_n(m_bytes.constData() + offset, count, bytes);
    }

    int reads = 0;

private:
    QByteArray m_bytes;
};

/// Data without a period.
QByteArray someData(qsizetype count) {
    QByteArray bytes(count, '\0');
    auto state = static_cast<std::uint32_t>(count);
    for (char& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24U);
    }
    return bytes;
}

QByteArray fileOf(const std::vector<qsizetype>& sizes) {
    QByteArray file(pngSignature.data(), std::ssize(pngSignature));
    for (const qsizetype size : sizes) {
        file += pngChunk("tEXt", someData(size));
    }
    return file;
}

/// The data of every chunk up to the end.
std::vector<QByteArray> dataOf(const std::shared_ptr<ByteSource>& source) {
    std::vector<QByteArray> all;
    PngChunkReader chunks(source);
    while (chunks.advance()) {
        EXPECT_EQ(chunks.type(), "tEXt");
        QByteArray data;
        for (QByteArrayView block = chunks.nextBlock(); !block.isEmpty(); block = chunks.nextBlock()) {
            data += block;
        }
        EXPECT_EQ(chunks.dataLeft(), 0);
        all.push_back(data);
    }
    return all;
}

}  // namespace

// Chunks begin, and their checksums lie, before, on and behind the borders of what is read at once.
TEST(PngChunks, OfEverySizeAreReadWhole) {
    const std::vector<qsizetype> ends{0,     1,     3,     4,     5,     65520, 65523, 65524,  65528,  65531,
                                      65532, 65535, 65536, 65537, 65539, 65540, 65541, 131072, 200'000};
    for (const qsizetype first : ends) {
        for (const qsizetype second : ends) {
            const std::vector<qsizetype> sizes{first, second, 7};
            std::vector<QByteArray> expected;
            std::transform(sizes.begin(), sizes.end(), std::back_inserter(expected), someData);
            EXPECT_EQ(dataOf(bytesInMemory(fileOf(sizes))), expected) << first << ", " << second;
        }
    }
}

TEST(PngChunks, AreReadInLargeBlocksHoweverSmall) {
    const auto source = std::make_shared<CountedBytes>(fileOf(std::vector<qsizetype>(1000, 8192)));
    EXPECT_EQ(dataOf(source).size(), 1000U);
    constexpr std::int64_t smallBlock = 1 << 15;
    EXPECT_LT(source->reads, source->size() / smallBlock);
}

TEST(PngChunks, WithAWrongChecksumLoseTheirLastBlock) {
    for (const qsizetype size : {0, 1, 8192, 65531, 65532, 65533, 65536, 65537, 150'000}) {
        QByteArray file = fileOf({100, size});
        file.back() = static_cast<char>(file.back() ^ 1);
        PngChunkReader chunks(bytesInMemory(file));
        ASSERT_TRUE(chunks.advance());
        chunks.skipData();
        EXPECT_THROW(chunks.advance() ? chunks.skipData() : void(), DecodeError) << size;
    }
}

TEST(PngChunks, EndWhereAChunkIsCut) {
    const QByteArray file = fileOf({10, 70'000});
    for (const qsizetype missing : {1, 4, 5, 70'000, 70'011, 70'012}) {
        EXPECT_EQ(dataOf(bytesInMemory(file.chopped(missing))), std::vector{someData(10)}) << missing;
    }
    EXPECT_TRUE(dataOf(bytesInMemory(file.first(8))).empty());
    EXPECT_TRUE(dataOf(bytesInMemory(file.first(3))).empty());
}
