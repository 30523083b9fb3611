// What a PNG says of its gamma, and what takes precedence over it.

#include "color_profiles.h"
#include "color_truth.h"
#include "png_files.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class PngGamma : public testing::Test {
protected:
    /// Every level in a row, as gray or as colors that are gray; at 16 bits every 251st.
    struct Levels {
        int colorType;
        int bitDepth;

        int largest() const { return bitDepth == 16 ? 65535 : 255; }
        int step() const { return bitDepth == 16 ? 251 : 1; }
        int width() const { return largest() / step() + 1; }
    };

    void write(const Levels& levels, const PngForm& like = {}) const {
        PngForm form = like;
        form.colorType = levels.colorType;
        form.bitDepth = levels.bitDepth;
        std::vector<std::uint16_t> samples;
        for (int index = 0; index < levels.width(); ++index) {
            samples.insert(samples.end(), levels.colorType == 0 ? 1 : 3,
                           static_cast<std::uint16_t>(index * levels.step()));
        }
        writePngSamples(file, levels.width(), 1, samples, form);
    }
    void addChunk(const char* type, const QByteArray& data) const {
        writeFile(file, withPngChunk(readFile(file), type, data));
    }

    /// Whether each level shows as the nearest byte of `truth(level)`; both 0...1.
    testing::AssertionResult shows(const Levels& levels, const std::function<double(double)>& truth) const {
        return rendersNear(
            file, levels.width(), 1,
            [&](int x, int) {
                const double gray = 255 * truth(static_cast<double>(x * levels.step()) / levels.largest());
                return Color{gray, gray, gray};
            },
            0.55);
    }

    const std::vector<Levels> forms{{0, 8}, {2, 8}, {0, 16}, {2, 16}};
    const TemporaryFolder folder;
    const QUrl file = folder.url(u"a.png"_s);
};

double asItIs(double value) { return value; }

TEST_F(PngGamma, IsHonouredToTheNearestByte) {
    for (const Levels& levels : forms) {
        for (const int gamma : {100000, 55556, 45000, 50000, 151515, 30000}) {
            PngForm form;
            form.gamma = gamma;
            write(levels, form);
            EXPECT_TRUE(
                shows(levels, [&](double value) { return encodedSRGB(std::pow(value, 100000.0 / gamma)); }))
                << gamma << " in " << levels.bitDepth << " bits of type " << levels.colorType;
        }
    }
}

TEST_F(PngGamma, OfSrgbChangesNothing) {
    for (const Levels& levels : forms) {
        PngForm form;
        form.gamma = 45455;
        write(levels, form);
        EXPECT_TRUE(shows(levels, asItIs));
    }
}

TEST_F(PngGamma, OfNothingIsIgnored) {
    for (const Levels& levels : forms) {
        write(levels);
        addChunk("gAMA", gammaChunkData(0));
        EXPECT_TRUE(shows(levels, asItIs));
    }
}

TEST_F(PngGamma, IsOverruledByTheWordThatItIsSrgb) {
    const QByteArray perceptual(1, '\0');
    for (const Levels& levels : forms) {
        write(levels);
        addChunk("gAMA", gammaChunkData(100000));
        addChunk("sRGB", perceptual);
        EXPECT_TRUE(shows(levels, asItIs)) << "sRGB before gAMA";
        write(levels);
        addChunk("sRGB", perceptual);
        addChunk("gAMA", gammaChunkData(100000));
        EXPECT_TRUE(shows(levels, asItIs)) << "gAMA before sRGB";
    }
}

TEST_F(PngGamma, IsOverruledByAProfile) {
    for (const Levels& levels : forms) {
        PngForm form;
        form.profile = levels.colorType == 0 ? grayGammaProfile(1.8) : displayP3Profile();
        write(levels, form);
        addChunk("gAMA", gammaChunkData(100000));
        EXPECT_TRUE(shows(levels,
                          [&](double value) {
                              // The grays of Display P3 are those of sRGB.
                              return levels.colorType == 0 ? encodedSRGB(std::pow(value, 1.8)) : value;
                          }))
            << levels.bitDepth << " bits of type " << levels.colorType;
    }
}

TEST_F(PngGamma, AnSrgbProfileOverrulesItToo) {
    const Levels levels{2, 8};
    PngForm form;
    form.profile = srgbProfile();
    write(levels, form);
    addChunk("gAMA", gammaChunkData(100000));
    EXPECT_TRUE(shows(levels, asItIs));
}

TEST_F(PngGamma, BehindThePixelsIsIgnored) {
    const Levels levels{0, 8};
    write(levels);
    const QByteArray plain = readFile(file);
    const QByteArray late = withPngChunk(plain, "gAMA", gammaChunkData(100000)).mid(33, 16);
    constexpr qsizetype endChunkSize = 12;
    QByteArray bytes = plain;
    bytes.insert(plain.size() - endChunkSize, late);
    writeFile(file, bytes);
    EXPECT_TRUE(shows(levels, asItIs));
}

}  // namespace
