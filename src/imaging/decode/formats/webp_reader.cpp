#include "imaging/decode/formats/webp_reader.h"

#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/vips_reader.h"

#include <QtEndian>

#include <algorithm>
#include <optional>

namespace quarlin {

namespace {

constexpr qsizetype chunkHeadSize = 8;
constexpr qsizetype riffHeadSize = 12;

struct Chunk {
    QByteArrayView type;
    QByteArrayView data;
};

/// Takes the next chunk off `rest`; nothing if it does not fit. A chunk of odd size is followed by a byte.
std::optional<Chunk> takeChunk(QByteArrayView& rest) {
    if (rest.size() < chunkHeadSize) {
        return std::nullopt;
    }
    const auto size = static_cast<qsizetype>(qFromLittleEndian<std::uint32_t>(rest.data() + 4));
    if (size > rest.size() - chunkHeadSize) {
        return std::nullopt;
    }
    const Chunk chunk{rest.first(4), rest.sliced(chunkHeadSize, size)};
    rest = rest.sliced(std::min(chunkHeadSize + size + size % 2, rest.size()));
    return chunk;
}

/// The codes of the picture, or of the first frame of an animation, among the chunks.
std::optional<Chunk> pictureAmong(QByteArrayView chunks) {
    constexpr qsizetype frameHeadSize = 16;
    while (const std::optional<Chunk> chunk = takeChunk(chunks)) {
        if (chunk->type == "VP8 " || chunk->type == "VP8L") {
            return chunk;
        }
        if (chunk->type == "ANMF" && chunk->data.size() > frameHeadSize) {
            return pictureAmong(chunk->data.sliced(frameHeadSize));
        }
    }
    return std::nullopt;
}

/// A file with nothing but the first `size` bytes of the picture's codes.
QByteArray plainFile(const Chunk& picture, qsizetype size) {
    const auto number = [](qsizetype value) {
        QByteArray bytes(4, '\0');
        qToLittleEndian(static_cast<std::uint32_t>(value), bytes.data());
        return bytes;
    };
    const qsizetype padding = size % 2;
    return "RIFF" + number(4 + chunkHeadSize + size + padding) + "WEBP" + picture.type.toByteArray() +
           number(size) + picture.data.first(size).toByteArray() + QByteArray(padding, '\0');
}

bool isDecodable(const QByteArray& file) {
    try {
        const std::unique_ptr<RowReader> reader = openWithVips(file, {}, ColorHandling::keepSamples).rows;
        PixelBuffer row(static_cast<std::size_t>(reader->bytesPerRow()));
        while (reader->position() < reader->height()) {
            reader->read(1, row.data());
        }
        return true;
    } catch (const DecodeError&) {
        return false;
    }
}

/// Whether the zeros at the end of the picture's codes were written by an encoder.
bool endsAsEncoded(const Chunk& picture) {
    // Decoders read ahead by half as many bytes, and fewer zeros can't hide much.
    constexpr qsizetype fewZeros = 16;
    const auto lastCode =
        std::find_if(picture.data.rbegin(), picture.data.rend(), [](char byte) { return byte != 0; });
    const auto zeros = static_cast<qsizetype>(lastCode - picture.data.rbegin());
    const qsizetype size = picture.data.size();
    return zeros < fewZeros || isDecodable(plainFile(picture, size - zeros)) ||
           !isDecodable(plainFile(picture, size - fewZeros));
}

}  // namespace

bool isWebp(const QByteArray& bytes) { return bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP"; }

OpenedImage openWebp(const QByteArray& bytes, ColorHandling handling) {
    const std::optional<Chunk> picture =
        bytes.size() < riffHeadSize ? std::nullopt : pictureAmong(QByteArrayView(bytes).sliced(riffHeadSize));
    if (!picture || !endsAsEncoded(*picture)) {
        throw DecodeError(DecodeProblem::damaged);
    }
    return openWithVips(bytes, {}, handling);
}

}  // namespace quarlin
