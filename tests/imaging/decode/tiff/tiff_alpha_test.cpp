// Straight and premultiplied alpha of TIFF files.

#include "color_profiles.h"
#include "imaging/pixels/pixel_image.h"
#include "picture.h"
#include "rendering.h"
#include "temporary_folder.h"
#include "tiff_files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class TiffAlpha : public testing::Test {
protected:
    static TiffForm form(TiffForm::Alpha alpha, int bits = 8) {
        TiffForm form;
        form.alpha = alpha;
        form.bitsPerSample = bits;
        return form;
    }

    /// Every alpha, each below colors of every kind.
    const Picture straight = noisePicture(256, 40, 1, true);
    const Picture stored{256, 40, premultiplied(straight)};
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.tif"_s);
};

TEST_F(TiffAlpha, PremultipliedSamplesStayTheirOwnBytes) {
    for (const bool bigEndian : {false, true}) {
        for (const bool large : {false, true}) {
            for (const int tile : {0, 64}) {
                TiffForm associated = form(TiffForm::Alpha::associated);
                associated.bigEndian = bigEndian;
                associated.large = large;
                associated.tile = tile;
                writeTiff(file, {tiffPage(stored, 4)}, associated);
                EXPECT_TRUE(sameBytes(stored.bytes, rendered(file).pixels))
                    << bigEndian << large << " tile " << tile;
            }
        }
    }
}

TEST_F(TiffAlpha, PremultipliedSixteenBitSamplesAreRounded) {
    for (const bool bigEndian : {false, true}) {
        TiffForm associated = form(TiffForm::Alpha::associated, 16);
        associated.bigEndian = bigEndian;
        TiffPage page = tiffPage(stored, 4, 257);
        for (std::uint16_t& sample : page.samples) {
            // Away from the byte's own place by less than half the way to the next.
            sample = static_cast<std::uint16_t>(sample > 60000 ? sample - 100 : sample + 100);
        }
        writeTiff(file, {page}, associated);
        EXPECT_TRUE(sameBytes(stored.bytes, rendered(file).pixels));
    }
}

TEST_F(TiffAlpha, PremultipliedGrayStaysItsOwnByte) {
    TiffForm associated = form(TiffForm::Alpha::associated);
    associated.colors = 1;
    writeTiff(file, {tiffPage(stored, 2)}, associated);
    const Picture gray = drawnPicture(256, 40, [&](int x, int y) {
        const Rgba pixel = stored.at(x, y);
        return Rgba{pixel[0], pixel[0], pixel[0], pixel[3]};
    });
    EXPECT_TRUE(sameBytes(gray.bytes, rendered(file).pixels));
}

TEST_F(TiffAlpha, NoPremultipliedColorIsBrighterThanItsAlpha) {
    writeTiff(file, {tiffPage(straight, 4)}, form(TiffForm::Alpha::associated));
    const PixelImage image = rendered(file);
    for (std::size_t at = 0; at < image.pixels.size(); ++at) {
        ASSERT_EQ(image.pixels[at], std::min(straight.bytes[at], straight.bytes[at / 4 * 4 + 3]));
    }
}

TEST_F(TiffAlpha, StraightSamplesAreMultipliedOnce) {
    for (const bool bigEndian : {false, true}) {
        TiffForm unassociated = form(TiffForm::Alpha::unassociated);
        unassociated.bigEndian = bigEndian;
        writeTiff(file, {tiffPage(straight, 4)}, unassociated);
        EXPECT_TRUE(rendersAs(straight, file));
    }
}

TEST_F(TiffAlpha, APremultipliedColorIsConvertedAsTheStraightOne) {
    TiffForm unassociated = form(TiffForm::Alpha::unassociated, 16);
    unassociated.profile = adobeRgbProfile();
    writeTiff(file, {tiffPage(straight, 4, 257)}, unassociated);
    const PixelImage wanted = rendered(file);
    TiffForm associated = form(TiffForm::Alpha::associated, 16);
    associated.profile = adobeRgbProfile();
    TiffPage page = tiffPage(straight, 4, 257);
    for (std::size_t at = 0; at < page.samples.size(); ++at) {
        if (at % 4 != 3) {
            const std::uint64_t alpha = page.samples[at / 4 * 4 + 3];
            page.samples[at] = static_cast<std::uint16_t>((page.samples[at] * alpha + 32767) / 65535);
        }
    }
    writeTiff(file, {page}, associated);
    EXPECT_TRUE(nearlySameBytes(wanted.pixels, rendered(file).pixels, 1));
}

}  // namespace
