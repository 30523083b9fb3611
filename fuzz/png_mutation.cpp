// Changes PNG files in ways that checksums and compression do not catch; other files byte by byte.

#include "imaging/png/png_signature.h"

#include <QByteArray>
#include <QtEndian>

#include <zlib.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximumSize);

using quarlin::pngSignature;

namespace {

constexpr qsizetype overhead = 12;

struct Chunk {
    QByteArray type;
    QByteArray data;
};

/// The chunks up to the first incomplete one, with or without a correct checksum.
std::vector<Chunk> chunksOf(const QByteArray& png) {
    std::vector<Chunk> chunks;
    qsizetype position = pngSignature.size();
    while (position + overhead <= png.size()) {
        const auto length = static_cast<qsizetype>(qFromBigEndian<quint32>(png.constData() + position));
        if (length > png.size() - position - overhead) {
            break;
        }
        chunks.push_back({png.mid(position + 4, 4), png.mid(position + 8, length)});
        position += length + overhead;
    }
    return chunks;
}

QByteArray bigEndian(quint32 value) {
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray fileOf(const std::vector<Chunk>& chunks) {
    QByteArray png(pngSignature.data(), pngSignature.size());
    for (const Chunk& chunk : chunks) {
        const QByteArray checked = chunk.type + chunk.data;
        png += bigEndian(static_cast<quint32>(chunk.data.size())) + checked;
        png += bigEndian(static_cast<quint32>(crc32(0, reinterpret_cast<const Bytef*>(checked.constData()),
                                                    static_cast<uInt>(checked.size()))));
    }
    return png;
}

QByteArray mutated(const QByteArray& bytes, qsizetype room) {
    QByteArray result(bytes.size() + room, 0);
    std::memcpy(result.data(), bytes.constData(), static_cast<std::size_t>(bytes.size()));
    const std::size_t size =
        LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(result.data()),
                         static_cast<std::size_t>(bytes.size()), static_cast<std::size_t>(result.size()));
    return result.first(static_cast<qsizetype>(size));
}

/// The bytes that the pixel chunks inflate to, up to the first error.
QByteArray inflatedRows(const std::vector<Chunk>& chunks) {
    QByteArray stream;
    for (const Chunk& chunk : chunks) {
        if (chunk.type == "IDAT") {
            stream += chunk.data;
        }
    }
    constexpr uLong most = uLong{1} << 16U;
    QByteArray rows(most, 0);
    uLongf size = most;
    uncompress(reinterpret_cast<Bytef*>(rows.data()), &size,
               reinterpret_cast<const Bytef*>(stream.constData()), static_cast<uLong>(stream.size()));
    return rows.first(static_cast<qsizetype>(size));
}

/// Changes the data inside the compressed pixel chunks.
void mutateRows(std::vector<Chunk>& chunks, std::minstd_rand& random) {
    const QByteArray rows = mutated(inflatedRows(chunks), random() % 4 == 0 ? 64 : 1);
    QByteArray stream(static_cast<qsizetype>(compressBound(static_cast<uLong>(rows.size()))), 0);
    auto size = static_cast<uLongf>(stream.size());
    compress2(reinterpret_cast<Bytef*>(stream.data()), &size,
              reinterpret_cast<const Bytef*>(rows.constData()), static_cast<uLong>(rows.size()),
              static_cast<int>(random() % 10));
    bool isStored = false;
    for (Chunk& chunk : chunks) {
        if (chunk.type == "IDAT") {
            chunk.data = isStored ? QByteArray() : stream.first(static_cast<qsizetype>(size));
            isStored = true;
        }
    }
}

void mutateChunks(std::vector<Chunk>& chunks, std::minstd_rand& random) {
    const auto place = [&] { return static_cast<std::ptrdiff_t>(random() % chunks.size()); };
    const auto chosen = chunks.begin() + place();
    switch (random() % 8) {
        case 0:
            mutateRows(chunks, random);
            mutateRows(chunks, random);
            break;
        case 1:
        case 2:
            mutateRows(chunks, random);
            break;
        case 3:
            std::swap(*chosen, chunks[static_cast<std::size_t>(place())]);
            break;
        case 4: {
            const Chunk copy = *chosen;
            chunks.insert(chunks.begin() + place(), copy);
            break;
        }
        case 5:
            if (!chosen->data.isEmpty()) {
                // Cuts a chunk in two, which is allowed for pixels.
                const Chunk rest{chosen->type, chosen->data.mid(chosen->data.size() / 2)};
                chosen->data.truncate(chosen->data.size() / 2);
                chunks.insert(chosen + 1, rest);
            }
            break;
        default:
            chosen->data = mutated(chosen->data, 16);
            break;
    }
}

}  // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximumSize,
                                               unsigned int seed) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    std::minstd_rand random(seed);
    std::vector<Chunk> chunks =
        bytes.startsWith(QByteArrayView(pngSignature)) ? chunksOf(bytes) : std::vector<Chunk>();
    if (chunks.empty() || random() % 8 == 0) {
        return LLVMFuzzerMutate(data, size, maximumSize);
    }
    mutateChunks(chunks, random);
    const QByteArray changed = fileOf(chunks);
    if (static_cast<std::size_t>(changed.size()) > maximumSize) {
        return LLVMFuzzerMutate(data, size, maximumSize);
    }
    std::memcpy(data, changed.constData(), static_cast<std::size_t>(changed.size()));
    return static_cast<std::size_t>(changed.size());
}
