// draw_seeds FOLDER: makes the files that fuzzing starts from, one subfolder per corpus.

#include "bmp_files.h"
#include "color_profiles.h"
#include "jpeg_files.h"
#include "png_files.h"
#include "raw_tiff.h"
#include "temporary_folder.h"
#include "tiff_files.h"
#include "vips_files.h"

#include <QDir>
#include <QUrl>

#include <cstdio>
#include <exception>

using namespace Qt::StringLiterals;

using namespace quarlin::fixtures;

namespace {

/// Writes numbered files into one folder.
class Corpus {
public:
    Corpus(const QString& root, const QString& name) : m_folder(QDir(root).filePath(name)) {
        QDir().mkpath(m_folder.path());
    }
    /// The place of the next file.
    QUrl next() {
        return QUrl::fromLocalFile(m_folder.filePath(u"%1"_s.arg(++m_count, 3, 10, QLatin1Char('0'))));
    }
    void add(const QByteArray& bytes) { writeFile(next(), bytes); }

private:
    QDir m_folder;
    int m_count = 0;
};

const Picture smooth = smoothPicture(11, 7);
const Picture noise = noisePicture(9, 8, 1);
const Picture translucent = noisePicture(7, 9, 2, true);

int samplesPerPixel(int colorType) {
    constexpr std::array<int, 7> samples{1, 0, 3, 1, 2, 0, 4};
    return samples[static_cast<std::size_t>(colorType)];
}

void writeSamples(Corpus& corpus, const PngForm& form) {
    constexpr int width = 13;
    constexpr int height = 6;
    const int limit = form.colorType == 3 ? static_cast<int>(form.palette.size()) : 1 << form.bitDepth;
    std::vector<std::uint16_t> samples;
    for (int index = 0; index < width * height * samplesPerPixel(form.colorType); ++index) {
        samples.push_back(static_cast<std::uint16_t>(index * 2654 % limit));
    }
    writePngSamples(corpus.next(), width, height, samples, form);
}

void drawPng(Corpus corpus) {
    const std::vector<std::pair<int, std::vector<int>>> depths{
        {0, {1, 2, 4, 8, 16}}, {2, {8, 16}}, {3, {1, 2, 4, 8}}, {4, {8, 16}}, {6, {8, 16}}};
    for (const auto& [colorType, bitDepths] : depths) {
        for (const int bitDepth : bitDepths) {
            for (const bool interlaced : {false, true}) {
                PngForm form;
                form.colorType = colorType;
                form.bitDepth = bitDepth;
                form.interlaced = interlaced;
                if (colorType == 3) {
                    form.palette = {{200, 10, 20}, {0, 90, 30}};
                    form.paletteAlpha = {128};
                } else if (colorType < 3 && interlaced) {
                    form.transparent = {1, 1, 1};
                }
                writeSamples(corpus, form);
            }
        }
    }
    for (const int gamma : {45455, 100000, 1000}) {
        PngForm form;
        form.gamma = gamma;
        writeSamples(corpus, form);
    }
    PngForm tagged;
    tagged.taggedSrgb = true;
    tagged.exif = exifWithOrientation(6);
    writeSamples(corpus, tagged);
    for (const QByteArray& profile : {srgbProfile(), displayP3Profile()}) {
        writePngWithProfile(corpus.next(), smooth, profile);
    }
    PngForm gray;
    gray.colorType = 0;
    gray.profile = grayGammaProfile(1.8);
    writeSamples(corpus, gray);
    // Rows that are long and similar enough for every row filter.
    writePng(corpus.next(), smoothPicture(40, 24), false);
    writePng(corpus.next(), translucent);
    writePng(corpus.next(), constantPicture(1, 1, {1, 2, 3, 4}));
}

void drawJpeg(Corpus corpus) {
    for (const bool progressive : {false, true}) {
        JpegForm form;
        form.progressive = progressive;
        corpus.add(colorJpeg(noise, form));
        corpus.add(grayJpeg(smooth, form));
        form.orientation = 6;
        form.profile = progressive ? displayP3Profile() : QByteArray();
        corpus.add(colorJpeg(smooth, form));
    }
    corpus.add(inkJpeg(translucent));
}

/// Numbers of every kind, colors of every model, in strips and tiles, side by side and in planes.
void drawRawTiff(Corpus& corpus) {
    const auto samples = [](int count) {
        std::vector<std::uint64_t> numbers;
        for (int index = 0; index < count; ++index) {
            numbers.push_back(static_cast<std::uint64_t>(index) * 0x123456789abcdefU);
        }
        return numbers;
    };
    constexpr int width = 18;
    constexpr int height = 3;
    for (const int bits : {1, 2, 4, 5, 8, 12, 16, 24, 32, 40, 64}) {
        corpus.add(RawTiff(width, height, 1, bits).file(samples(width * height)));
        RawTiff planes(width, height, 3, bits);
        corpus.add(planes.separatePlanes().tiles(16, 16).bigEndian().file(samples(width * height * 3)));
    }
    for (const int bits : {16, 32, 64}) {
        corpus.add(RawTiff(width, height, 4, bits).sampleFormat(3).file(samples(width * height * 4)));
    }
    // Inks, brightness and differences, and both forms of CIELAB.
    for (const int photometric : {5, 6, 8, 9}) {
        RawTiff tiff(width, height, 5, 8);
        corpus.add(tiff.photometric(photometric).extraSamples({0, 2}).file(samples(width * height * 5)));
    }
    RawTiff palette(width, height, 1, 4);
    corpus.add(palette.photometric(3).palette(std::vector<int>(48, 4711)).file(samples(width * height)));
    RawTiff fax(200, 40, 1, 1);
    corpus.add(fax.photometric(0).set(259, {4}).fileOfStrip(QByteArray(9, '\xff')));
}

void drawTiff(Corpus corpus) {
    for (const int colors : {1, 3}) {
        for (const TiffForm::Alpha alpha :
             {TiffForm::Alpha::none, TiffForm::Alpha::unassociated, TiffForm::Alpha::associated}) {
            for (const int bits : {8, 16}) {
                TiffForm form;
                form.colors = colors;
                form.alpha = alpha;
                form.bitsPerSample = bits;
                form.tile = bits == 16 ? 16 : 0;
                form.compression = colors == 3 ? 5 : 8;
                const int channels = colors + (alpha == TiffForm::Alpha::none ? 0 : 1);
                writeTiff(corpus.next(), {tiffPage(translucent, channels, bits == 16 ? 257 : 1)}, form);
            }
        }
    }
    TiffForm white;
    white.colors = 1;
    white.minimumIsWhite = true;
    white.orientation = 3;
    writeTiff(corpus.next(), {tiffPage(smooth, 1), tiffPage(noise, 1)}, white);
    TiffForm tagged;
    tagged.profile = adobeRgbProfile();
    writeTiff(corpus.next(), {tiffPage(smooth, 3)}, tagged);
    drawRawTiff(corpus);
}

void drawBmp(Corpus corpus) {
    corpus.add(bmp24(noise));
    corpus.add(bmp24(noise, true));
    corpus.add(bmp32(noise));
    corpus.add(bmp32WithAlpha(translucent));
    corpus.add(bmp8Gray(smooth));
    corpus.add(bmp8GrayRunLength(smooth));
    corpus.add(bmp1(noise, {0, 0, 0, 255}, {255, 255, 255, 255}));
    constexpr qsizetype fileHeaderSize = 14;
    corpus.add(bmp24(noise).sliced(fileHeaderSize));
    corpus.add(bmp8GrayRunLength(smooth).sliced(fileHeaderSize));
}

/// A picture of few colors, some of them transparent.
Picture cutOut(int phase) {
    return drawnPicture(12, 10, [phase](int x, int y) {
        return (x + phase) % 4 == 0 ? Rgba{0, 0, 0, 0}
                                    : Rgba{static_cast<std::uint8_t>(y / 5 * 200), 40, 90, 255};
    });
}

void drawOthers(const QString& root) {
    Corpus gif(root, u"gif"_s);
    gif.add(encoded(Encoder::gif, noise));
    gif.add(encoded(Encoder::gif, cutOut(0)));
    gif.add(animatedGif({cutOut(0), cutOut(1), cutOut(2)}));
    Corpus webp(root, u"webp"_s);
    webp.add(encoded(Encoder::webp, noise));
    webp.add(encoded(Encoder::webp, translucent));
    webp.add(encoded(Encoder::lossyWebp, noise));
    webp.add(encoded(Encoder::lossyWebp, translucent));
    webp.add(animatedWebp({cutOut(0), cutOut(1)}));
    webp.add(webpWithOrientation(smooth, 6));
    for (const auto& [encoder, name] : {std::pair{Encoder::heic, "heic"}, std::pair{Encoder::avif, "avif"}}) {
        Corpus corpus(root, QString::fromLatin1(name));
        corpus.add(encoded(encoder, smoothPicture(16, 16)));
        corpus.add(encoded(encoder, noisePicture(16, 24, 3, true)));
    }
}

void writeWords(Corpus corpus) {
    for (const char* words :
         {"--help",
          "--output\nfolder\n--source\na.png\n--name\nBrick\n--size\n1024\n--strength\n3.5\n--smoothing\n2",
          "--base-color=a.png\n--output=b\n--gloss\n--flip-normal-green\n--default-roughness\n0.5\n--json",
          "--source\na.png\n--output\nb\n--no-height\n--no-notes\n--roughness-min\n-1e9\n--roughness-"
          "max\nnan",
          "stray\n--\n--output\n-x\n--size=base", "--size\n\n--name=\n--unknown"}) {
        corpus.add(words);
    }
}

void writeNames(Corpus corpus) {
    for (const char* name : {"A Brick", "A  ../..//.. ",
                             "AGr\xC3\xB6\xC3\x9F"
                             "e",
                             "A\xF0\x9F\xA7\xB1 e\xCC\x81", "A\t\r\n", "A"}) {
        corpus.add(name);
    }
}

void draw(const QString& root) {
    drawPng({root, u"png"_s});
    drawJpeg({root, u"jpeg"_s});
    drawTiff({root, u"tiff"_s});
    drawBmp({root, u"bmp"_s});
    drawOthers(root);
    writeNames({root, u"material_name"_s});
    writeWords({root, u"command_line"_s});
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: draw_seeds FOLDER\n", stderr);
        return 2;
    }
    try {
        draw(QString::fromLocal8Bit(argv[1]));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "draw_seeds: %s\n", error.what());
        return 1;
    }
}
