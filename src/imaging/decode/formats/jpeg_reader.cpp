#include "imaging/decode/formats/jpeg_reader.h"

#include "imaging/decode/alternative_rows.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/default_cmyk_profile.h"
#include "imaging/decode/formats/jpeg_decompressor.h"
#include "imaging/decode/formats/jpeg_padding.h"
#include "imaging/decode/row_conversion.h"
#include "imaging/decode/two_step_reader.h"

#include <utility>
#include <vector>

namespace quarlin {

namespace {

SampleForm formOf(const JpegDecompressor& jpeg) {
    SampleForm form;
    form.channels = jpeg.channels();
    // The standard knows no alpha; two components of no known color model are taken as gray with alpha.
    form.hasAlpha = form.channels == 2;
    return form;
}

class JpegReader final : public TwoStepReader {
public:
    JpegReader(std::unique_ptr<JpegDecompressor> jpeg, RowConversion conversion)
        : TwoStepReader(jpeg->width(), jpeg->height(), jpeg->width() * jpeg->channels()),
          m_jpeg(std::move(jpeg)),
          m_conversion(std::move(conversion)) {}

private:
    void decodeRows(std::int64_t count, std::uint8_t* samples) override {
        for (std::int64_t row = 0; row < count; ++row) {
            m_jpeg->readRow(samples + row * samplesPerRow());
        }
    }
    void convertRows(std::int64_t count, std::uint8_t* samples, std::uint8_t* pixels) override {
        m_conversion(samples, count * width(), pixels);
    }

    std::unique_ptr<JpegDecompressor> m_jpeg;
    RowConversion m_conversion;
};

OpenedImage openCleaned(const std::shared_ptr<ByteSource>& source, const std::vector<ByteRange>& parts,
                        JpegExtent extent, ColorHandling handling) {
    auto jpeg = std::make_unique<JpegDecompressor>(source, parts, extent);
    FileColors colors{jpeg->colorProfile(), {}, handling};
    if (jpeg->isCmyk()) {
        colors.otherwise = defaultCmykProfile;
    }
    FileConversion conversion = rowConversion(formOf(*jpeg), colors);
    if (!conversion.convert) {
        throw DecodeError(DecodeProblem::damaged);
    }
    return {std::make_unique<JpegReader>(std::move(jpeg), std::move(conversion.convert)),
            conversion.convertedFrom};
}

}  // namespace

bool isJpeg(const QByteArray& bytes) { return bytes.startsWith("\xff\xd8\xff"); }

OpenedImage openJpeg(const std::shared_ptr<ByteSource>& source, ColorHandling handling) {
    JpegParts parts = jpegParts(*source);
    if (parts.withoutZeros == parts.clean) {
        return openCleaned(source, parts.clean, JpegExtent::rows, handling);
    }
    // If the picture needs all of the zeros, the file is without flaw with them; otherwise it must be so
    // without them, and the rows are the same.
    OpenedImage image = openCleaned(source, parts.clean, JpegExtent::wholeFile, handling);
    image.rows = std::make_unique<AlternativeRows>(
        std::move(image.rows), [source, handling, withoutZeros = std::move(parts.withoutZeros)] {
            return openCleaned(source, withoutZeros, JpegExtent::wholeScans, handling).rows;
        });
    return image;
}

}  // namespace quarlin
