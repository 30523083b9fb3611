#include "imaging/decode/formats/png_reader.h"

#include "imaging/color/color_profile.h"
#include "imaging/decode/alternative_rows.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/plain_png_reader.h"
#include "imaging/decode/formats/png_checksum.h"
#include "imaging/decode/formats/vips_reader.h"
#include "imaging/png/png_signature.h"

#include <QtEndian>

#include <cstdint>
#include <optional>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype chunkOverhead = 12;

/// Whether each chunk ends within the file, up to that for the end. libpng takes memory for all that a chunk
/// claims to hold before it reads any of it, and newer versions of libvips do not miss the last chunk.
bool hasAllChunks(const QByteArray& png) {
    qsizetype position = pngSignature.size();
    while (position + chunkOverhead <= png.size()) {
        const auto length = static_cast<qsizetype>(qFromBigEndian<std::uint32_t>(png.constData() + position));
        if (length > png.size() - position - chunkOverhead) {
            return false;
        }
        if (QByteArrayView(png.constData() + position + 4, 4) == "IEND") {
            return true;
        }
        position += chunkOverhead + length;
    }
    return false;
}

/// The encoding exponent of a gAMA chunk that precedes the pixels, in a file without an iCCP or sRGB chunk.
std::optional<double> onlyGamma(const QByteArray& png) {
    std::optional<double> gamma;
    qsizetype position = pngSignature.size();
    while (position + chunkOverhead <= png.size()) {
        const auto length = qFromBigEndian<std::uint32_t>(png.constData() + position);
        const QByteArrayView type(png.constData() + position + 4, 4);
        if (type == "iCCP" || type == "sRGB") {
            return std::nullopt;
        }
        if (type == "IDAT") {
            break;
        }
        if (type == "gAMA" && length == 4 && position + chunkOverhead + 4 <= png.size()) {
            gamma = qFromBigEndian<std::uint32_t>(png.constData() + position + 8) / 100000.0;
        }
        position += chunkOverhead + static_cast<qsizetype>(length);
    }
    return gamma;
}

}  // namespace

bool isPng(const QByteArray& bytes) { return bytes.startsWith(QByteArrayView(pngSignature)); }

OpenedImage openPng(const std::shared_ptr<ByteSource>& source, ColorHandling handling) {
    if (auto plain = openPlainPng(source)) {
        return {std::make_unique<AlternativeRows>(std::move(plain),
                                                  [source] { return openAnyPng(source->all()).rows; })};
    }
    return openAnyPng(source->all(), handling);
}

OpenedImage openAnyPng(const QByteArray& bytes, ColorHandling handling) {
    if (!hasAllChunks(bytes) || hasDamagedPixelStream(bytes)) {
        throw DecodeError(DecodeProblem::damaged);
    }
    const auto profileOfFile = [&](int colorChannels) -> std::optional<NamedProfile> {
        const std::optional<double> gamma = onlyGamma(bytes);
        const std::optional<QByteArray> profile =
            gamma ? profileOfGamma(*gamma, colorChannels) : std::nullopt;
        return profile ? std::optional(NamedProfile{*profile, u"gamma "_s + QString::number(*gamma)})
                       : std::nullopt;
    };
    return openWithVips(bytes, profileOfFile, handling);
}

}  // namespace quarlin
