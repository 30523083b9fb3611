// Random bytes behind the beginning of a real file, at every depth of its structure. Libraries must not end
// the process, whatever they are given: an assertion of theirs would end this test, too.

#include "bmp_files.h"
#include "decoded_image.h"
#include "heif_files.h"
#include "jpeg_files.h"
#include "png_files.h"
#include "temporary_folder.h"
#include "tiff_files.h"
#include "vips_files.h"

#include <QtEndian>

#include <random>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

struct Beginning {
    const char* name;
    QByteArray (*file)();
};

Picture picture() { return noisePicture(24, 16, 1); }
Picture translucent() { return noisePicture(24, 16, 2, true); }

template <typename Write>
QByteArray written(const Write& write) {
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a"_s);
    write(file);
    return fixtures::readFile(file);
}

QByteArray png() {
    return written([](const QUrl& file) { writePng(file, picture()); });
}
QByteArray palettePng() {
    return written([](const QUrl& file) {
        PngForm form;
        form.colorType = 3;
        form.palette = {{1, 2, 3}, {4, 5, 6}};
        writePngSamples(file, 8, 8, std::vector<std::uint16_t>(64, 1), form);
    });
}
QByteArray jpeg() { return colorJpeg(picture()); }
QByteArray progressiveJpeg() {
    JpegForm form;
    form.progressive = true;
    return colorJpeg(picture(), form);
}
template <int compression, int tile, bool isBigEndian>
QByteArray tiff() {
    return written([](const QUrl& file) {
        TiffForm form;
        form.compression = compression;
        form.tile = tile;
        form.bigEndian = isBigEndian;
        writeTiff(file, {tiffPage(picture(), 3)}, form);
    });
}
QByteArray gif() { return encoded(Encoder::gif, picture()); }
QByteArray webp() { return encoded(Encoder::webp, picture()); }
QByteArray lossyWebp() { return encoded(Encoder::lossyWebp, picture()); }
QByteArray translucentWebp() { return encoded(Encoder::lossyWebp, translucent()); }
QByteArray animation() { return animatedWebp({picture(), picture()}); }
template <bool isAvif, bool hasAlpha>
QByteArray heif() {
    HeifForm form;
    form.isAvif = isAvif;
    form.hasAlpha = hasAlpha;
    form.orientation = 6;
    return heifFile(translucent(), form);
}
QByteArray bmp() { return bmp24(picture()); }
QByteArray bmpRuns() { return bmp8GrayRunLength(picture()); }
QByteArray bareBmp() { return bmp24(picture()).sliced(14); }

class RandomBytes : public testing::TestWithParam<Beginning> {
protected:
    QByteArray randomBytes(int count) {
        QByteArray bytes;
        for (int byte = 0; byte < count; ++byte) {
            bytes.append(static_cast<char>(m_random()));
        }
        return bytes;
    }
    /// Decodes bytes that may be anything; returns whether that gave an image.
    static bool isDecoded(const QByteArray& bytes) {
        try {
            return !decodeImage(bytes).isNull();
        } catch (const DecodeError&) {
            return false;
        }
    }

    const QByteArray whole = GetParam().file();

private:
    std::mt19937_64 m_random{7};
};

TEST_P(RandomBytes, BehindTheBeginningOfAFile) {
    ASSERT_TRUE(isDecoded(whole));
    int refused = 0;
    for (qsizetype kept = 2; kept < whole.size(); kept += 1 + kept / 6) {
        for (int count = 0; count < 12; ++count) {
            refused += isDecoded(whole.first(kept) + randomBytes(250)) ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 0);
}

TEST_P(RandomBytes, InsideAFile) {
    int refused = 0;
    for (qsizetype place = 2; place < whole.size(); place += 1 + place / 6) {
        for (int count = 0; count < 12; ++count) {
            QByteArray changed = whole;
            const QByteArray bytes = randomBytes(1 + count % 4);
            changed.replace(std::min(place, whole.size() - bytes.size()), bytes.size(), bytes);
            refused += isDecoded(changed) ? 0 : 1;
        }
    }
    EXPECT_GT(refused, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Format, RandomBytes,
    testing::Values(Beginning{"Png", png}, Beginning{"PalettePng", palettePng}, Beginning{"Jpeg", jpeg},
                    Beginning{"ProgressiveJpeg", progressiveJpeg}, Beginning{"Tiff", tiff<1, 0, false>},
                    Beginning{"LzwTiff", tiff<5, 0, true>}, Beginning{"TiledTiff", tiff<8, 16, false>},
                    Beginning{"Gif", gif}, Beginning{"Webp", webp}, Beginning{"LossyWebp", lossyWebp},
                    Beginning{"TranslucentWebp", translucentWebp}, Beginning{"Animation", animation},
                    Beginning{"Heic", heif<false, false>}, Beginning{"TranslucentHeic", heif<false, true>},
                    Beginning{"Avif", heif<true, false>}, Beginning{"TranslucentAvif", heif<true, true>},
                    Beginning{"Bmp", bmp}, Beginning{"BmpRuns", bmpRuns}, Beginning{"BareBmp", bareBmp}),
    [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
