// A copy or a download that broke off may leave a file of the right size whose end was never written: zeros.
// Such a file is refused, or it is the whole picture because nothing of it was lost.

#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"

#include "heif_files.h"
#include "jpeg_files.h"
#include "picture.h"
#include "png_files.h"
#include "temporary_folder.h"
#include "tiff_files.h"
#include "vips_files.h"

#include <gtest/gtest.h>
#include <QImage>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

struct Format {
    const char* name;
    QByteArray (*write)(const Picture& picture);
};

QByteArray png(const Picture& picture) {
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
    writePng(file, picture);
    return fixtures::readFile(file);
}

QByteArray compressedTiff(const Picture& picture) {
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.tif"_s);
    TiffForm form;
    form.compression = 5;
    writeTiff(file, {tiffPage(picture, 3)}, form);
    return fixtures::readFile(file);
}

QByteArray lossyWebp(const Picture& picture) { return encoded(Encoder::lossyWebp, picture); }
QByteArray losslessWebp(const Picture& picture) { return encoded(Encoder::webp, picture); }
QByteArray gif(const Picture& picture) { return encoded(Encoder::gif, picture); }
QByteArray heic(const Picture& picture) {
    HeifForm form;
    form.isAvif = false;
    return heifFile(picture, form);
}
QByteArray avif(const Picture& picture) { return heifFile(picture, {}); }
QByteArray lossyHeic(const Picture& picture) { return encoded(Encoder::heic, picture); }
QByteArray lossyAvif(const Picture& picture) { return encoded(Encoder::avif, picture); }
QByteArray baselineJpeg(const Picture& picture) { return colorJpeg(picture); }

class UnwrittenTail : public testing::TestWithParam<Format> {};

TEST_P(UnwrittenTail, IsRefusedUnlessNothingIsLost) {
    const Picture noise = noisePicture(64, 48, 1);
    const Picture smooth = smoothPicture(96, 64);
    for (const Picture& picture : {noise, smooth}) {
        const QByteArray whole = GetParam().write(picture);
        const QImage expected = decodeImage(whole);
        constexpr int steps = 60;
        int refused = 0;
        for (int step = 0; step < steps; ++step) {
            const qsizetype written = whole.size() * step / steps;
            try {
                const QImage image =
                    decodeImage(whole.first(written) + QByteArray(whole.size() - written, '\0'));
                EXPECT_EQ(image, expected) << written << " of " << whole.size();
            } catch (const DecodeError&) {
                ++refused;
            }
        }
        // Some encoders write metadata after the picture, which may get lost.
        EXPECT_GE(refused, steps * 2 / 3);
    }
}

TEST_P(UnwrittenTail, OfAFlatPictureIsNotTakenForGranted) {
    // Codes of flat areas may be zeros themselves: the whole file is read all the same.
    for (const Rgba color : {Rgba{0, 0, 0, 255}, Rgba{255, 255, 255, 255}, Rgba{90, 120, 200, 255}}) {
        const Picture flat = constantPicture(512, 512, color);
        const QImage image = decodeImage(GetParam().write(flat));
        EXPECT_EQ(image.width(), 512);
        for (std::size_t channel = 0; channel < 3; ++channel) {
            EXPECT_NEAR(image.constScanLine(511)[std::size_t{511} * 4 + channel], color[channel], 3);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Format, UnwrittenTail,
                         testing::Values(Format{"Png", png}, Format{"Jpeg", baselineJpeg},
                                         Format{"CompressedTiff", compressedTiff}, Format{"Gif", gif},
                                         Format{"LosslessWebp", losslessWebp}, Format{"LossyWebp", lossyWebp},
                                         Format{"Heic", heic}, Format{"LossyHeic", lossyHeic},
                                         Format{"Avif", avif}, Format{"LossyAvif", lossyAvif}),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
