#include "imaging/deflate/inflate_stream.h"

#include <gtest/gtest.h>

#include <zlib.h>

#include <algorithm>
#include <random>
#include <stdexcept>
#include <vector>

using namespace quarlin;

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes someText() {
    std::mt19937 random(3);
    Bytes text(100'000);
    for (std::uint8_t& byte : text) {
        byte = static_cast<std::uint8_t>(random() % 7);
    }
    return text;
}

Bytes deflated(const Bytes& text) {
    uLongf size = compressBound(text.size());
    Bytes stream(size);
    EXPECT_EQ(compress(stream.data(), &size, text.data(), text.size()), Z_OK);
    stream.resize(size);
    return stream;
}

using Pieces = std::vector<QByteArrayView>;

Pieces cut(const Bytes& stream, std::size_t pieceSize) {
    Pieces pieces;
    for (std::size_t begin = 0; begin < stream.size(); begin += pieceSize) {
        const std::size_t size = std::min(pieceSize, stream.size() - begin);
        pieces.emplace_back(stream.data() + begin, static_cast<qsizetype>(size));
    }
    return pieces;
}

InflateStream::NextPiece eachOf(const Pieces& pieces) {
    return [pieces, next = std::size_t{0}]() mutable {
        return next < pieces.size() ? pieces[next++] : QByteArrayView();
    };
}

/// Whether the stream in these pieces holds exactly `size` bytes and then its end.
bool isWhole(const Pieces& pieces, std::size_t size) {
    InflateStream stream(eachOf(pieces));
    Bytes output(size);
    return stream.read(output) && stream.hasEnded();
}

TEST(InflateStream, TheTextIsTheSameForAllPiecesAndReads) {
    const Bytes text = someText();
    const Bytes whole = deflated(text);
    for (const std::size_t pieceSize : {std::size_t{1}, std::size_t{7}, std::size_t{8192}, whole.size()}) {
        for (const std::size_t readSize : {std::size_t{1}, std::size_t{333}, std::size_t{70'000}}) {
            SCOPED_TRACE(testing::Message() << "pieces of " << pieceSize << ", read by " << readSize);
            InflateStream stream(eachOf(cut(whole, pieceSize)));
            Bytes output(text.size());
            for (std::size_t begin = 0; begin < output.size(); begin += readSize) {
                const std::size_t size = std::min(readSize, output.size() - begin);
                ASSERT_TRUE(stream.read({output.data() + begin, size}));
            }
            EXPECT_TRUE(stream.hasEnded());
            EXPECT_EQ(output, text);
        }
    }
}

TEST(InflateStream, ReadingBeyondTheEndFails) {
    const Bytes text = someText();
    const Bytes whole = deflated(text);
    EXPECT_TRUE(isWhole(cut(whole, 100), text.size()));
    EXPECT_FALSE(isWhole(cut(whole, 100), text.size() + 1));
    EXPECT_FALSE(isWhole({}, 1));
    EXPECT_FALSE(isWhole({}, 0));
}

TEST(InflateStream, TheEndIsNotReachedWhileBytesAreLeft) {
    const Bytes text = someText();
    EXPECT_FALSE(isWhole(cut(deflated(text), 100), text.size() - 1));
}

TEST(InflateStream, BytesAfterTheEndAreNoticed) {
    const Bytes text = someText();
    Bytes whole = deflated(text);
    whole.push_back(0);
    for (const std::size_t pieceSize : {std::size_t{1}, std::size_t{1000}, whole.size()}) {
        EXPECT_FALSE(isWhole(cut(whole, pieceSize), text.size())) << pieceSize;
    }
}

TEST(InflateStream, AFailureOfTheSourceIsPassedOn) {
    const Bytes whole = deflated(someText());
    InflateStream stream([&, isFirst = true]() mutable -> QByteArrayView {
        if (!isFirst) {
            throw std::runtime_error("the source has failed");
        }
        isFirst = false;
        return {whole.data(), 100};
    });
    Bytes output(100'000);
    EXPECT_THROW(stream.read(output), std::runtime_error);
}

TEST(InflateStream, AMissingEndIsNoticed) {
    const Bytes text = someText();
    Bytes whole = deflated(text);
    for (int missing = 0; missing < 6; ++missing) {
        whole.pop_back();
        EXPECT_FALSE(isWhole(cut(whole, 1000), text.size())) << missing;
    }
}

TEST(InflateStream, AStreamIsCutOnlyIfItsEndIsMissing) {
    const Bytes text = someText();
    const Bytes whole = deflated(text);
    Bytes output(1000);
    for (std::size_t missing = 0; missing < 3000; missing += 1 + missing / 5) {
        const Bytes part(whole.begin(), whole.end() - static_cast<std::ptrdiff_t>(missing));
        for (const std::size_t pieceSize : {std::size_t{1}, std::size_t{1000}}) {
            InflateStream stream(eachOf(cut(part, pieceSize)));
            while (stream.read(output)) {
            }
            EXPECT_EQ(stream.isCut(), missing > 0) << missing << ' ' << pieceSize;
        }
    }
}

TEST(InflateStream, DamageIsNoticedByTheChecksumAtTheLatest) {
    const Bytes text = someText();
    const Bytes whole = deflated(text);
    for (std::size_t index = 0; index < whole.size(); index += 97) {
        Bytes damaged = whole;
        damaged[index] ^= 0x10U;
        EXPECT_FALSE(isWhole(cut(damaged, 1000), text.size())) << index;
    }
}

}  // namespace
