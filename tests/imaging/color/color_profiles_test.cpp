// Embedded color profiles, against the color library's own conversion.

#include "color_profiles.h"
#include "imaging/pixels/pixel_image.h"
#include "jpeg_files.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"
#include "tiff_files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Every combination of a few levels per channel, the grays among them.
Picture colorChart() {
    return drawnPicture(81, 9, [](int x, int y) {
        const auto level = [](int step) { return static_cast<std::uint8_t>((step * 255 + 4) / 8); };
        return Rgba{level(x / 9), level(x % 9), level(y), 255};
    });
}

/// The opaque picture as the color library converts it.
Picture converted(const Picture& picture, const QByteArray& profile) {
    std::vector<std::uint8_t> rgb;
    for (std::size_t index = 0; index < picture.bytes.size(); ++index) {
        if (index % 4 != 3) {
            rgb.push_back(picture.bytes[index]);
        }
    }
    const std::vector<std::uint8_t> srgb = rgbToSrgb(profile, rgb);
    return drawnPicture(picture.width, picture.height, [&](int x, int y) {
        const auto at = static_cast<std::size_t>(y * picture.width + x) * 3;
        return Rgba{srgb[at], srgb[at + 1], srgb[at + 2], 255};
    });
}

class ColorProfiles : public testing::Test {
protected:
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
};

TEST_F(ColorProfiles, DisplayP3ComesOutAsSrgb) {
    writePngWithProfile(file, colorChart(), displayP3Profile());
    const Picture expected = converted(colorChart(), displayP3Profile());
    ASSERT_GT(largestDifference(expected.bytes, colorChart().bytes), 20);
    EXPECT_TRUE(rendersAs(expected, file, 1));
}

TEST_F(ColorProfiles, AdobeRgbComesOutAsSrgb) {
    writePngWithProfile(file, colorChart(), adobeRgbProfile());
    const Picture expected = converted(colorChart(), adobeRgbProfile());
    ASSERT_GT(largestDifference(expected.bytes, colorChart().bytes), 20);
    EXPECT_TRUE(rendersAs(expected, file, 1));
}

TEST_F(ColorProfiles, TheGraysOfDisplayP3AreThoseOfSrgb) {
    const Picture grays = drawnPicture(256, 1, [](int x, int) {
        const auto gray = static_cast<std::uint8_t>(x);
        return Rgba{gray, gray, gray, 255};
    });
    writePngWithProfile(file, grays, displayP3Profile());
    EXPECT_TRUE(rendersAs(grays, file, 1));
}

TEST_F(ColorProfiles, AnSrgbProfileChangesNoByte) {
    const Picture picture = noisePicture(256, 128, 1);
    writePngWithProfile(file, picture, srgbProfile());
    EXPECT_TRUE(rendersAs(picture, file));
}

TEST_F(ColorProfiles, AnSrgbProfileChangesNoByteOfAJpeg) {
    JpegForm form;
    form.profile = srgbProfile();
    const QUrl plain = folder.url(u"plain.jpg"_s);
    const QUrl tagged = folder.url(u"tagged.jpg"_s);
    writeFile(plain, colorJpeg(smoothPicture(40, 30)));
    writeFile(tagged, colorJpeg(smoothPicture(40, 30), form));
    EXPECT_EQ(rendered(tagged), rendered(plain));
}

TEST_F(ColorProfiles, AreHonouredInAJpeg) {
    JpegForm form;
    form.profile = adobeRgbProfile();
    const QByteArray jpeg = colorJpeg(smoothPicture(40, 30), form);
    writeFile(file, jpeg);
    EXPECT_TRUE(rendersAs(converted(readColorJpeg(jpeg), adobeRgbProfile()), file, 2));
}

TEST_F(ColorProfiles, AreHonouredInATiff) {
    TiffForm form;
    form.profile = displayP3Profile();
    writeTiff(file, {tiffPage(colorChart(), 3)}, form);
    EXPECT_TRUE(rendersAs(converted(colorChart(), displayP3Profile()), file, 1));
}

TEST_F(ColorProfiles, AreHonouredInSixteenBits) {
    PngForm form;
    form.colorType = 2;
    form.bitDepth = 16;
    form.profile = displayP3Profile();
    std::vector<std::uint16_t> samples;
    const Picture chart = colorChart();
    for (std::size_t index = 0; index < chart.bytes.size(); ++index) {
        if (index % 4 != 3) {
            samples.push_back(static_cast<std::uint16_t>(chart.bytes[index] * 257));
        }
    }
    writePngSamples(file, chart.width, chart.height, samples, form);
    EXPECT_TRUE(rendersAs(converted(chart, displayP3Profile()), file, 1));
}

TEST_F(ColorProfiles, AreHonouredBeforeTheAlphaIsMultiplied) {
    PngForm form;
    form.profile = displayP3Profile();
    Picture chart = colorChart();
    for (std::size_t at = 3; at < chart.bytes.size(); at += 4) {
        chart.bytes[at] = static_cast<std::uint8_t>(at * 37 % 256);
    }
    writePngSamples(file, chart.width, chart.height, {chart.bytes.begin(), chart.bytes.end()}, form);
    Picture expected = converted(colorChart(), displayP3Profile());
    for (std::size_t at = 3; at < chart.bytes.size(); at += 4) {
        expected.bytes[at] = chart.bytes[at];
    }
    EXPECT_TRUE(rendersAs(expected, file, 1));
}

TEST_F(ColorProfiles, AreHonouredInAPalette) {
    PngForm form;
    form.colorType = 3;
    form.palette = {{255, 0, 0}, {0, 200, 30}, {90, 90, 90}};
    form.profile = adobeRgbProfile();
    writePngSamples(file, 3, 1, {0, 1, 2}, form);
    EXPECT_TRUE(rendersAs(
        converted(Picture{3, 1, {255, 0, 0, 255, 0, 200, 30, 255, 90, 90, 90, 255}}, adobeRgbProfile()), file,
        1));
}

class GrayProfiles : public ColorProfiles {
protected:
    void expectConverted(const QByteArray& profile, int bitDepth) const {
        PngForm form;
        form.colorType = 0;
        form.bitDepth = bitDepth;
        form.profile = profile;
        std::vector<std::uint16_t> samples;
        std::vector<std::uint8_t> grays;
        for (unsigned gray = 0; gray < 256; ++gray) {
            samples.push_back(static_cast<std::uint16_t>(bitDepth == 16 ? gray * 257 : gray));
            grays.push_back(static_cast<std::uint8_t>(gray));
        }
        writePngSamples(file, 256, 1, samples, form);
        const std::vector<std::uint8_t> srgb = grayToSrgb(profile, grays);
        Picture expected{256, 1, {}};
        for (std::size_t gray = 0; gray < 256; ++gray) {
            expected.bytes.insert(expected.bytes.end(),
                                  {srgb[gray * 3], srgb[gray * 3 + 1], srgb[gray * 3 + 2], 255});
        }
        EXPECT_TRUE(rendersAs(expected, file, 1));
        const PixelImage image = rendered(file);
        int largest = 0;
        for (int gray = 0; gray < 256; ++gray) {
            largest = std::max(largest, std::abs(pixelAt(image, gray, 0)[1] - gray));
        }
        EXPECT_GT(largest, 5) << "the profile did nothing";
    }
};

TEST_F(GrayProfiles, AGammaConverts) {
    expectConverted(grayGammaProfile(1.8), 8);
    expectConverted(grayGammaProfile(1.8), 16);
}

TEST_F(GrayProfiles, ADotGainConverts) {
    expectConverted(grayDotGainProfile(), 8);
    expectConverted(grayDotGainProfile(), 16);
}

TEST_F(GrayProfiles, AConvertedGrayStaysGray) {
    PngForm form;
    form.colorType = 0;
    form.profile = grayGammaProfile(1.8);
    std::vector<std::uint16_t> samples;
    for (std::uint16_t gray = 0; gray < 256; ++gray) {
        samples.push_back(gray);
    }
    writePngSamples(file, 256, 1, samples, form);
    const PixelImage image = rendered(file);
    for (int gray = 0; gray < 256; ++gray) {
        const Rgba pixel = pixelAt(image, gray, 0);
        EXPECT_NEAR(pixel[0], pixel[1], 1);
        EXPECT_NEAR(pixel[2], pixel[1], 1);
    }
}

TEST_F(GrayProfiles, InAJpegConvert) {
    JpegForm form;
    form.profile = grayGammaProfile(1.8);
    writeFile(file, grayJpeg(constantPicture(16, 16, {100, 100, 100, 255}), form));
    const std::vector<std::uint8_t> srgb = grayToSrgb(form.profile, {100});
    EXPECT_TRUE(rendersAs(constantPicture(16, 16, {srgb[0], srgb[1], srgb[2], 255}), file, 1));
}

TEST_F(GrayProfiles, WithAlphaConvert) {
    PngForm form;
    form.colorType = 4;
    form.profile = grayGammaProfile(1.8);
    writePngSamples(file, 2, 1, {100, 255, 100, 0}, form);
    const std::vector<std::uint8_t> srgb = grayToSrgb(form.profile, {100});
    EXPECT_TRUE(rendersAs(Picture{2, 1, {srgb[0], srgb[1], srgb[2], 255, 0, 0, 0, 0}}, file, 1));
}

TEST_F(ColorProfiles, ADamagedProfileIsNoReasonToRefuseThePicture) {
    // The format's library refuses to write what is no profile, so the damage is done behind a sound header.
    QByteArray profile = displayP3Profile();
    for (qsizetype index = 132; index < profile.size(); ++index) {
        profile[index] = static_cast<char>(profile[index] ^ 0x5a);
    }
    JpegForm form;
    form.profile = profile;
    const QUrl plain = folder.url(u"plain.jpg"_s);
    writeFile(plain, colorJpeg(smoothPicture(40, 30)));
    writeFile(file, colorJpeg(smoothPicture(40, 30), form));
    EXPECT_EQ(rendered(file), rendered(plain));
}

TEST_F(ColorProfiles, AProfileOfAnotherColorModelIsIgnored) {
    JpegForm form;
    form.profile = grayGammaProfile(1.8);
    const QUrl plain = folder.url(u"plain.jpg"_s);
    writeFile(plain, colorJpeg(smoothPicture(40, 30)));
    writeFile(file, colorJpeg(smoothPicture(40, 30), form));
    EXPECT_EQ(rendered(file), rendered(plain));
}

}  // namespace
