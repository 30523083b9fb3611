#include "imaging/decode/formats/tga_reader.h"

#include "imaging/base/pixel_size.h"
#include "imaging/decode/decode_error.h"
#include "imaging/pixels/convert_pixels.h"
#include "imaging/pixels/pixel_image.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace quarlin {

namespace {

/// What the pixels, or the entries of the palette, hold.
enum class Samples { palette, color, gray };

struct Header {
    Samples samples = Samples::color;
    bool isRunLength = false;
    std::int64_t width = 0;
    std::int64_t height = 0;
    int bitsPerPixel = 0;
    /// Whether the header declares alpha. Files without may hold anything in the bits that remain.
    bool hasAlpha = false;
    bool isFromRight = false;
    bool isFromTop = false;
    int firstColor = 0;
    int colors = 0;
    int bitsPerColor = 0;
    qsizetype paletteOffset = 0;

    static constexpr qsizetype size = 18;

    qsizetype bytesPerPixel() const { return (bitsPerPixel + 7) / 8; }
    qsizetype bytesPerColor() const { return (bitsPerColor + 7) / 8; }
    qsizetype pixelOffset() const { return paletteOffset + colors * bytesPerColor(); }
};

bool isColorDepth(int bits) { return bits == 15 || bits == 16 || bits == 24 || bits == 32; }

bool isPossible(const Header& header) {
    if (!isUsableSize(header.width, header.height)) {
        return false;
    }
    switch (header.samples) {
        case Samples::palette:
            return header.bitsPerPixel == 8 && header.colors > 0 && isColorDepth(header.bitsPerColor);
        case Samples::gray:
            return header.bitsPerPixel == 8 || header.bitsPerPixel == 16;
        case Samples::color:
            break;
    }
    return isColorDepth(header.bitsPerPixel);
}

std::optional<Header> readHeader(const QByteArray& bytes) {
    if (bytes.size() < Header::size) {
        return std::nullopt;
    }
    const auto byteAt = [&](qsizetype offset) { return static_cast<std::uint8_t>(bytes[offset]); };
    const auto wordAt = [&](qsizetype offset) {
        return int{qFromLittleEndian<std::uint16_t>(bytes.constData() + offset)};
    };
    constexpr std::uint8_t runLengthBit = 8;
    constexpr std::uint8_t alphaBits = 0x0F;
    constexpr std::uint8_t rightBit = 0x10;
    constexpr std::uint8_t topBit = 0x20;
    constexpr std::uint8_t interleavingBits = 0xC0;
    const std::uint8_t paletteType = byteAt(1);
    const std::uint8_t imageType = byteAt(2);
    const std::uint8_t descriptor = byteAt(17);
    const int samples = imageType & ~runLengthBit;
    if (paletteType > 1 || samples < 1 || samples > 3 || (descriptor & interleavingBits) != 0 ||
        (descriptor & alphaBits) > 8) {
        return std::nullopt;
    }
    Header header;
    header.samples = static_cast<Samples>(samples - 1);
    header.isRunLength = (imageType & runLengthBit) != 0;
    header.paletteOffset = Header::size + byteAt(0);
    if (paletteType == 1) {
        header.firstColor = wordAt(3);
        header.colors = wordAt(5);
        header.bitsPerColor = byteAt(7);
    }
    header.width = wordAt(12);
    header.height = wordAt(14);
    header.bitsPerPixel = byteAt(16);
    header.hasAlpha = (descriptor & alphaBits) != 0;
    header.isFromRight = (descriptor & rightBit) != 0;
    header.isFromTop = (descriptor & topBit) != 0;
    return isPossible(header) ? std::optional(header) : std::nullopt;
}

using Rgba = std::array<std::uint8_t, 4>;

/// Five bits as eight: 31 becomes 255.
std::uint8_t fromFiveBits(int value) { return static_cast<std::uint8_t>((value << 3) | (value >> 2)); }

/// A color of 15 to 32 bits.
Rgba colorAt(const char* bytes, int bits, bool hasAlpha) {
    const auto* sample = reinterpret_cast<const std::uint8_t*>(bytes);
    if (bits > 16) {
        const std::uint8_t alpha = bits == 32 && hasAlpha ? sample[3] : std::uint8_t{255};
        return {sample[2], sample[1], sample[0], alpha};
    }
    constexpr int fiveBits = 31;
    const int value = sample[0] | (sample[1] << 8);
    const bool isTransparent = bits == 16 && hasAlpha && (value >> 15) == 0;
    return {fromFiveBits((value >> 10) & fiveBits), fromFiveBits((value >> 5) & fiveBits),
            fromFiveBits(value & fiveBits), isTransparent ? std::uint8_t{0} : std::uint8_t{255}};
}

/// Reads pixels in the order of the file.
class Decoding {
public:
    Decoding(const QByteArray& bytes, const Header& header)
        : m_bytes(bytes), m_header(header), m_position(header.pixelOffset()) {
        for (int color = 0; color < header.colors; ++color) {
            m_palette.push_back(
                colorAt(at(header.paletteOffset + color * header.bytesPerColor(), header.bytesPerColor()),
                        header.bitsPerColor, header.hasAlpha));
        }
    }

    Rgba next() {
        if (!m_header.isRunLength) {
            return take();
        }
        if (m_left == 0) {
            const auto packet = static_cast<std::uint8_t>(*at(m_position++, 1));
            constexpr std::uint8_t repeatBit = 0x80;
            m_isRepeated = (packet & repeatBit) != 0;
            m_left = (packet & ~repeatBit) + 1;
            if (m_isRepeated) {
                m_repeated = take();
            }
        }
        --m_left;
        return m_isRepeated ? m_repeated : take();
    }

    /// Whether a run goes on.
    bool isInsideRun() const { return m_left > 0; }

private:
    const char* at(qsizetype offset, qsizetype count) const {
        if (count > m_bytes.size() - offset) {
            throw DecodeError(DecodeProblem::damaged);
        }
        return m_bytes.constData() + offset;
    }

    Rgba take() {
        const qsizetype count = m_header.bytesPerPixel();
        const char* sample = at(m_position, count);
        m_position += count;
        switch (m_header.samples) {
            case Samples::palette: {
                const int index = static_cast<std::uint8_t>(*sample) - m_header.firstColor;
                if (index < 0 || index >= m_header.colors) {
                    throw DecodeError(DecodeProblem::damaged);
                }
                return m_palette[static_cast<std::size_t>(index)];
            }
            case Samples::gray: {
                const auto gray = static_cast<std::uint8_t>(sample[0]);
                const bool hasAlpha = count == 2 && m_header.hasAlpha;
                return {gray, gray, gray,
                        hasAlpha ? static_cast<std::uint8_t>(sample[1]) : std::uint8_t{255}};
            }
            case Samples::color:
                break;
        }
        return colorAt(sample, m_header.bitsPerPixel, m_header.hasAlpha);
    }

    const QByteArray& m_bytes;
    const Header& m_header;
    qsizetype m_position;
    std::vector<Rgba> m_palette;
    int m_left = 0;
    bool m_isRepeated = false;
    Rgba m_repeated{};
};

/// The size of the smallest file that holds all pixels.
std::int64_t smallestSize(const Header& header) {
    constexpr std::int64_t longestRun = 128;
    const std::int64_t pixels = header.width * header.height;
    const std::int64_t bytes = header.isRunLength
                                   ? (pixels + longestRun - 1) / longestRun * (1 + header.bytesPerPixel())
                                   : pixels * header.bytesPerPixel();
    return header.pixelOffset() + bytes;
}

/// Rows are usually stored from the bottom, so they are all decoded before the first is given.
class TgaReader final : public RowReader {
public:
    TgaReader(QByteArray bytes, const Header& header)
        : RowReader(header.width, header.height), m_bytes(std::move(bytes)), m_header(header) {}

    bool keepColorsStraight() override {
        m_isStraight = true;
        return true;
    }

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        if (m_pixels.empty()) {
            decode();
            m_bytes.clear();
        }
        std::copy_n(m_pixels.data() + position() * bytesPerRow(), count * bytesPerRow(), rows);
    }

    void decode() {
        m_pixels.resize(static_cast<std::size_t>(height() * bytesPerRow()));
        Decoding decoding(m_bytes, m_header);
        for (std::int64_t stored = 0; stored < height(); ++stored) {
            const std::int64_t y = m_header.isFromTop ? stored : height() - 1 - stored;
            std::uint8_t* const row = m_pixels.data() + y * bytesPerRow();
            for (std::int64_t column = 0; column < width(); ++column) {
                const std::int64_t x = m_header.isFromRight ? width() - 1 - column : column;
                const Rgba pixel = decoding.next();
                std::copy(pixel.begin(), pixel.end(), row + x * bytesPerPixel);
            }
        }
        if (decoding.isInsideRun()) {
            throw DecodeError(DecodeProblem::damaged);
        }
        if (!m_isStraight) {
            premultiplyPixels(m_pixels.data(), width() * height());
        }
    }

    QByteArray m_bytes;
    Header m_header;
    PixelBuffer m_pixels;
    bool m_isStraight = false;
};

}  // namespace

bool isTga(const QByteArray& bytes) { return readHeader(bytes).has_value(); }

std::unique_ptr<RowReader> openTga(const QByteArray& bytes) {
    const std::optional<Header> header = readHeader(bytes);
    if (!header || smallestSize(*header) > bytes.size()) {
        throw DecodeError(DecodeProblem::damaged);
    }
    return std::make_unique<TgaReader>(bytes, *header);
}

}  // namespace quarlin
