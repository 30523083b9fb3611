#include "imaging/decode/formats/png_reader.h"

#include "imaging/color/color_profile.h"
#include "imaging/decode/alternative_rows.h"
#include "imaging/decode/formats/plain_png_reader.h"
#include "imaging/decode/formats/vips_reader.h"
#include "imaging/png/png_signature.h"

#include <QtEndian>

#include <cstdint>
#include <optional>

namespace quarlin {

namespace {

/// The encoding exponent of a gAMA chunk that precedes the pixels, in a file without an iCCP or sRGB chunk.
std::optional<double> onlyGamma(const QByteArray& png) {
    constexpr qsizetype chunkOverhead = 12;
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

std::unique_ptr<RowReader> openPng(const std::shared_ptr<ByteSource>& source) {
    if (auto plain = openPlainPng(source)) {
        return std::make_unique<AlternativeRows>(std::move(plain),
                                                 [source] { return openAnyPng(source->all()); });
    }
    return openAnyPng(source->all());
}

std::unique_ptr<RowReader> openAnyPng(const QByteArray& bytes) {
    return openWithVips(bytes, [&](int colorChannels) -> std::optional<QByteArray> {
        const std::optional<double> gamma = onlyGamma(bytes);
        return gamma ? profileOfGamma(*gamma, colorChannels) : std::nullopt;
    });
}

}  // namespace quarlin
