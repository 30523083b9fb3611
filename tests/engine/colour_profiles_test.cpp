// Embedded colour profiles, against the colour library's own conversion.

#include "colour_profiles.h"
#include "jpeg_files.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"
#include "tiff_files.h"

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// Every combination of a few levels per channel, the greys among them.
Picture colourChart() {
    return drawnPicture(81, 9, [](int x, int y) {
        const auto level = [](int step) { return static_cast<std::uint8_t>((step * 255 + 4) / 8); };
        return Rgba{level(x / 9), level(x % 9), level(y), 255};
    });
}

/// The opaque picture as the colour library converts it.
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

class ColourProfiles : public testing::Test {
protected:
    const TemporaryFolder folder;
    const QUrl file = folder.url(QStringLiteral("a.png"));
};

TEST_F(ColourProfiles, DisplayP3ComesOutAsSrgb) {
    writePngWithProfile(file, colourChart(), displayP3Profile());
    const Picture expected = converted(colourChart(), displayP3Profile());
    ASSERT_GT(largestDifference(expected.bytes, colourChart().bytes), 20);
    EXPECT_TRUE(rendersAs(expected, file, 1));
}

TEST_F(ColourProfiles, AdobeRgbComesOutAsSrgb) {
    writePngWithProfile(file, colourChart(), adobeRgbProfile());
    const Picture expected = converted(colourChart(), adobeRgbProfile());
    ASSERT_GT(largestDifference(expected.bytes, colourChart().bytes), 20);
    EXPECT_TRUE(rendersAs(expected, file, 1));
}

TEST_F(ColourProfiles, TheGreysOfDisplayP3AreThoseOfSrgb) {
    const Picture greys = drawnPicture(256, 1, [](int x, int) {
        const auto grey = static_cast<std::uint8_t>(x);
        return Rgba{grey, grey, grey, 255};
    });
    writePngWithProfile(file, greys, displayP3Profile());
    EXPECT_TRUE(rendersAs(greys, file, 1));
}

TEST_F(ColourProfiles, AnSrgbProfileChangesNoByte) {
    const Picture picture = noisePicture(256, 128, 1);
    writePngWithProfile(file, picture, srgbProfile());
    EXPECT_TRUE(rendersAs(picture, file));
}

TEST_F(ColourProfiles, AnSrgbProfileChangesNoByteOfAJpeg) {
    JpegForm form;
    form.profile = srgbProfile();
    const QUrl plain = folder.url(QStringLiteral("plain.jpg"));
    const QUrl tagged = folder.url(QStringLiteral("tagged.jpg"));
    writeFile(plain, colourJpeg(smoothPicture(40, 30)));
    writeFile(tagged, colourJpeg(smoothPicture(40, 30), form));
    EXPECT_EQ(rendered(tagged), rendered(plain));
}

TEST_F(ColourProfiles, AreHonouredInAJpeg) {
    JpegForm form;
    form.profile = adobeRgbProfile();
    const QByteArray jpeg = colourJpeg(smoothPicture(40, 30), form);
    writeFile(file, jpeg);
    EXPECT_TRUE(rendersAs(converted(readColourJpeg(jpeg), adobeRgbProfile()), file, 2));
}

TEST_F(ColourProfiles, AreHonouredInATiff) {
    TiffForm form;
    form.profile = displayP3Profile();
    writeTiff(file, {tiffPage(colourChart(), 3)}, form);
    EXPECT_TRUE(rendersAs(converted(colourChart(), displayP3Profile()), file, 1));
}

TEST_F(ColourProfiles, AreHonouredInSixteenBits) {
    PngForm form;
    form.colourType = 2;
    form.bitDepth = 16;
    form.profile = displayP3Profile();
    std::vector<std::uint16_t> samples;
    const Picture chart = colourChart();
    for (std::size_t index = 0; index < chart.bytes.size(); ++index) {
        if (index % 4 != 3) {
            samples.push_back(static_cast<std::uint16_t>(chart.bytes[index] * 257));
        }
    }
    writePngSamples(file, chart.width, chart.height, samples, form);
    EXPECT_TRUE(rendersAs(converted(chart, displayP3Profile()), file, 1));
}

TEST_F(ColourProfiles, AreHonouredBeforeTheAlphaIsMultiplied) {
    PngForm form;
    form.profile = displayP3Profile();
    Picture chart = colourChart();
    for (std::size_t at = 3; at < chart.bytes.size(); at += 4) {
        chart.bytes[at] = static_cast<std::uint8_t>(at * 37 % 256);
    }
    writePngSamples(file, chart.width, chart.height, {chart.bytes.begin(), chart.bytes.end()}, form);
    Picture expected = converted(colourChart(), displayP3Profile());
    for (std::size_t at = 3; at < chart.bytes.size(); at += 4) {
        expected.bytes[at] = chart.bytes[at];
    }
    EXPECT_TRUE(rendersAs(expected, file, 1));
}

TEST_F(ColourProfiles, AreHonouredInAPalette) {
    PngForm form;
    form.colourType = 3;
    form.palette = {{255, 0, 0}, {0, 200, 30}, {90, 90, 90}};
    form.profile = adobeRgbProfile();
    writePngSamples(file, 3, 1, {0, 1, 2}, form);
    EXPECT_TRUE(rendersAs(
        converted(Picture{3, 1, {255, 0, 0, 255, 0, 200, 30, 255, 90, 90, 90, 255}}, adobeRgbProfile()), file,
        1));
}

class GreyProfiles : public ColourProfiles {
protected:
    void expectConverted(const QByteArray& profile, int bitDepth) const {
        PngForm form;
        form.colourType = 0;
        form.bitDepth = bitDepth;
        form.profile = profile;
        std::vector<std::uint16_t> samples;
        std::vector<std::uint8_t> greys;
        for (unsigned grey = 0; grey < 256; ++grey) {
            samples.push_back(static_cast<std::uint16_t>(bitDepth == 16 ? grey * 257 : grey));
            greys.push_back(static_cast<std::uint8_t>(grey));
        }
        writePngSamples(file, 256, 1, samples, form);
        const std::vector<std::uint8_t> srgb = greyToSrgb(profile, greys);
        Picture expected{256, 1, {}};
        for (std::size_t grey = 0; grey < 256; ++grey) {
            expected.bytes.insert(expected.bytes.end(),
                                  {srgb[grey * 3], srgb[grey * 3 + 1], srgb[grey * 3 + 2], 255});
        }
        EXPECT_TRUE(rendersAs(expected, file, 1));
        const PixelImage image = rendered(file);
        int largest = 0;
        for (int grey = 0; grey < 256; ++grey) {
            largest = std::max(largest, std::abs(pixelAt(image, grey, 0)[1] - grey));
        }
        EXPECT_GT(largest, 5) << "the profile did nothing";
    }
};

TEST_F(GreyProfiles, AGammaConverts) {
    expectConverted(greyGammaProfile(1.8), 8);
    expectConverted(greyGammaProfile(1.8), 16);
}

TEST_F(GreyProfiles, ADotGainConverts) {
    expectConverted(greyDotGainProfile(), 8);
    expectConverted(greyDotGainProfile(), 16);
}

TEST_F(GreyProfiles, AConvertedGreyStaysGrey) {
    PngForm form;
    form.colourType = 0;
    form.profile = greyGammaProfile(1.8);
    std::vector<std::uint16_t> samples;
    for (std::uint16_t grey = 0; grey < 256; ++grey) {
        samples.push_back(grey);
    }
    writePngSamples(file, 256, 1, samples, form);
    const PixelImage image = rendered(file);
    for (int grey = 0; grey < 256; ++grey) {
        const Rgba pixel = pixelAt(image, grey, 0);
        EXPECT_NEAR(pixel[0], pixel[1], 1);
        EXPECT_NEAR(pixel[2], pixel[1], 1);
    }
}

TEST_F(GreyProfiles, InAJpegConvert) {
    JpegForm form;
    form.profile = greyGammaProfile(1.8);
    writeFile(file, greyJpeg(constantPicture(16, 16, {100, 100, 100, 255}), form));
    const std::vector<std::uint8_t> srgb = greyToSrgb(form.profile, {100});
    EXPECT_TRUE(rendersAs(constantPicture(16, 16, {srgb[0], srgb[1], srgb[2], 255}), file, 1));
}

TEST_F(GreyProfiles, WithAlphaConvert) {
    PngForm form;
    form.colourType = 4;
    form.profile = greyGammaProfile(1.8);
    writePngSamples(file, 2, 1, {100, 255, 100, 0}, form);
    const std::vector<std::uint8_t> srgb = greyToSrgb(form.profile, {100});
    EXPECT_TRUE(rendersAs(Picture{2, 1, {srgb[0], srgb[1], srgb[2], 255, 0, 0, 0, 0}}, file, 1));
}

TEST_F(ColourProfiles, ADamagedProfileIsNoReasonToRefuseThePicture) {
    // The format's library refuses to write what is no profile, so the damage is done behind a sound header.
    QByteArray profile = displayP3Profile();
    for (qsizetype index = 132; index < profile.size(); ++index) {
        profile[index] = static_cast<char>(profile[index] ^ 0x5a);
    }
    JpegForm form;
    form.profile = profile;
    const QUrl plain = folder.url(QStringLiteral("plain.jpg"));
    writeFile(plain, colourJpeg(smoothPicture(40, 30)));
    writeFile(file, colourJpeg(smoothPicture(40, 30), form));
    EXPECT_EQ(rendered(file), rendered(plain));
}

TEST_F(ColourProfiles, AProfileOfAnotherColourModelIsIgnored) {
    JpegForm form;
    form.profile = greyGammaProfile(1.8);
    const QUrl plain = folder.url(QStringLiteral("plain.jpg"));
    writeFile(plain, colourJpeg(smoothPicture(40, 30)));
    writeFile(file, colourJpeg(smoothPicture(40, 30), form));
    EXPECT_EQ(rendered(file), rendered(plain));
}

}  // namespace
