#include "imaging/decode/formats/tiff/tiff_reader.h"

#include "imaging/color/color_profile.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/default_cmyk_profile.h"
#include "imaging/decode/formats/tiff/tiff_samples.h"
#include "imaging/decode/two_step_reader.h"
#include "imaging/pixels/convert_pixels.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quarlin {

namespace {

/// What each of the two readers below keeps.
struct OpenTiff {
    std::unique_ptr<TiffFile> file;
    TiffPage page;
};

class TiffReader final : public TwoStepReader {
public:
    TiffReader(OpenTiff tiff, const SampleForm& form, RowConversion conversion)
        : TwoStepReader(tiff.page.width, tiff.page.height, tiff.page.width * form.bytesPerPixel()),
          m_tiff(std::move(tiff)),
          m_rows(*m_tiff.file, m_tiff.page),
          m_conversion(std::move(conversion)) {}

private:
    void decodeRows(std::int64_t count, std::uint8_t* samples) override {
        for (std::int64_t row = 0; row < count; ++row) {
            m_rows.readNext();
            convertTiffRow(m_tiff.page, m_rows, samples + row * samplesPerRow());
        }
    }
    void convertRows(std::int64_t count, std::uint8_t* samples, std::uint8_t* pixels) override {
        m_conversion(samples, count * width(), pixels);
    }

    OpenTiff m_tiff;
    TiffRows m_rows;
    RowConversion m_conversion;
};

/// The library converts whole pages only.
class ConvertedTiffReader final : public TwoStepReader {
public:
    ConvertedTiffReader(OpenTiff tiff, RowConversion conversion)
        : TwoStepReader(tiff.page.width, tiff.page.height, tiff.page.width * channels),
          m_tiff(std::move(tiff)),
          m_conversion(std::move(conversion)) {}

private:
    static constexpr int channels = 3;

    void decodeRows(std::int64_t count, std::uint8_t* samples) override {
        if (m_pixels.empty()) {
            decode();
        }
        const std::uint32_t* next = m_pixels.data() + m_decodedRows * width();
        for (std::int64_t index = 0; index < count * width(); ++index) {
            std::uint8_t* pixel = samples + index * channels;
            pixel[0] = static_cast<std::uint8_t>(TIFFGetR(next[index]));
            pixel[1] = static_cast<std::uint8_t>(TIFFGetG(next[index]));
            pixel[2] = static_cast<std::uint8_t>(TIFFGetB(next[index]));
        }
        m_decodedRows += count;
    }
    void convertRows(std::int64_t count, std::uint8_t* samples, std::uint8_t* pixels) override {
        m_conversion(samples, count * width(), pixels);
    }

    void decode() {
        TIFF* tiff = m_tiff.file->handle();
        // The rows stay as the file has them: its orientation is ignored.
        TIFFSetField(tiff, TIFFTAG_ORIENTATION, ORIENTATION_TOPLEFT);
        m_pixels.resize(static_cast<std::size_t>(width() * height()));
        constexpr int stopAtErrors = 1;
        m_tiff.file->expect(TIFFReadRGBAImageOriented(tiff, static_cast<std::uint32_t>(width()),
                                                      static_cast<std::uint32_t>(height()), m_pixels.data(),
                                                      ORIENTATION_TOPLEFT, stopAtErrors) == 1);
    }

    OpenTiff m_tiff;
    RowConversion m_conversion;
    std::vector<std::uint32_t> m_pixels;
    std::int64_t m_decodedRows = 0;
};

FileColors colorsOf(const TiffPage& page, ColorHandling handling) {
    switch (page.colors) {
        case TiffColors::lab:
        case TiffColors::iccLab:
            return {labProfile(), {}};
        case TiffColors::inks:
            return {page.profile, defaultCmykProfile};
        default:
            return {page.profile, {}, handling};
    }
}

}  // namespace

bool isTiff(const QByteArray& bytes) {
    using namespace std::string_view_literals;
    // In both byte orders, with offsets of 32 and of 64 bits.
    constexpr std::array signatures{"II\x2a\0"sv, "MM\0\x2a"sv, "II\x2b\0"sv, "MM\0\x2b"sv};
    return std::any_of(signatures.begin(), signatures.end(), [&](std::string_view signature) {
        return bytes.startsWith(QByteArrayView(signature));
    });
}

OpenedImage openTiff(const QByteArray& bytes, ColorHandling handling) {
    OpenTiff tiff{std::make_unique<TiffFile>(bytes), {}};
    tiff.page = readTiffPage(*tiff.file);
    const bool isConvertedByLibrary = tiff.page.colors == TiffColors::convertedByLibrary;
    const SampleForm form = isConvertedByLibrary ? SampleForm() : tiff.page.sampleForm();
    FileConversion conversion = rowConversion(form, colorsOf(tiff.page, handling));
    if (!conversion.convert) {
        throw DecodeError(DecodeProblem::damaged);
    }
    OpenedImage image{nullptr, conversion.convertedFrom};
    if (isConvertedByLibrary) {
        image.rows = std::make_unique<ConvertedTiffReader>(std::move(tiff), std::move(conversion.convert));
    } else {
        image.rows = std::make_unique<TiffReader>(std::move(tiff), form, std::move(conversion.convert));
    }
    return image;
}

}  // namespace quarlin
