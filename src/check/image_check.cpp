#include "check/image_check.h"

#include "check/image_header.h"
#include "check/normal_statistics.h"
#include "check/set_check.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_file.h"
#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"

#include <QFileInfo>

#include <cmath>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

bool isPowerOfTwo(std::int64_t side) { return side > 0 && (side & (side - 1)) == 0; }

QString sizeText(const QSize& size) {
    return QString::number(size.width()) + u'x' + QString::number(size.height());
}

/// A share of 0...1 as a whole percentage, at least 1.
QString percentage(double share) { return QString::number(std::max(1L, std::lround(share * 100))) + u'%'; }

/// Whether the name's extension, if any, is one of `format`.
bool fitsName(ImageFormat format, const QString& name) {
    const QString extension = QFileInfo(name).suffix().toLower();
    const bool isJPEGName = extension == u"jpg"_s || extension == u"jpeg"_s;
    return extension.isEmpty() || isJPEGName == (format == ImageFormat::jpeg);
}

void checkFormat(const QByteArray& bytes, const QString& name, Findings& findings) {
    const ImageFormat format = imageFormat(bytes);
    if (format == ImageFormat::other) {
        findings.push_back({FindingKind::wrongFormat, name, u"The image is neither PNG nor JPEG."_s});
    } else if (!fitsName(format, name)) {
        findings.push_back({FindingKind::wrongFormat, name,
                            u"The image is a "_s + (format == ImageFormat::png ? u"PNG"_s : u"JPEG"_s) +
                                u", which its name does not say."_s});
    }
}

void checkHeader(const PngHeader& header, const QString& name, ImageUse use, Findings& findings) {
    constexpr int usualDepth = 8;
    const bool isGray = header.color == PngColor::gray || header.color == PngColor::grayAlpha;
    if (isGray && use != ImageUse::baseColor) {
        findings.push_back(
            {FindingKind::wrongChannels, name, u"The image is gray: red, green and blue are the same."_s});
    }
    if (header.color == PngColor::indexed) {
        findings.push_back(
            {FindingKind::indexedColor, name, u"The image has a palette of at most 256 colors."_s});
    } else if (header.bitDepth != usualDepth) {
        findings.push_back(
            {FindingKind::wrongDepth, name,
             u"The image has "_s + QString::number(header.bitDepth) + u" bits per channel; 8 are used."_s});
    }
}

void checkSize(const QSize& size, const QString& name, Findings& findings) {
    if (!isPowerOfTwo(size.width()) || !isPowerOfTwo(size.height())) {
        findings.push_back({FindingKind::notPowerOfTwo, name,
                            u"The image is "_s + sizeText(size) +
                                u": a side is no power of two, so it is rescaled on upload."_s});
    }
    if (size.width() > longestSide || size.height() > longestSide) {
        findings.push_back({FindingKind::tooLarge, name,
                            u"The image is "_s + sizeText(size) + u": a side is longer than "_s +
                                QString::number(longestSide) +
                                u" pixels, so it is scaled down on upload."_s});
    }
}

void checkFileName(const QString& name, Findings& findings) {
    const qsizetype length = fileStem(QUrl::fromLocalFile(name)).toUtf8().size();
    if (length > longestInventoryName) {
        findings.push_back({FindingKind::fileNameCut, name,
                            u"Uploaded alone, the image keeps "_s + QString::number(longestInventoryName) +
                                u" of the "_s + QString::number(length) + u" bytes of its name."_s});
    }
}

}  // namespace

QImage CheckedImages::read(const QString& name, ImageUse use, Findings& findings) {
    const auto known = m_images.find(name);
    if (known != m_images.end()) {
        return known->second;
    }
    QImage& image = m_images[name];
    ImageFile file;
    try {
        file = readImageFile(fileIn(m_folder, name));
    } catch (const FileError& error) {
        findings.push_back({FindingKind::missingImage, name,
                            QFileInfo::exists(error.file().toLocalFile()) ? u"The image can't be read."_s
                                                                          : u"The image is missing."_s});
        return image;
    } catch (const DecodeError&) {
        checkFileName(name, findings);
        findings.push_back({FindingKind::undecodableImage, name, u"The file is no whole, intact image."_s});
        return image;
    }
    image = file.image;
    checkFileName(name, findings);
    checkFormat(file.content.bytes, name, findings);
    if (const auto header = readPngHeader(file.content.bytes)) {
        checkHeader(*header, name, use, findings);
    }
    checkSize(image.size(), name, findings);
    return image;
}

void checkAlpha(const QImage& image, const QString& name, Findings& findings) {
    const ImageView view(image);
    const auto count = static_cast<std::int64_t>(pixelCount(view.width, view.height));
    std::int64_t transparent = 0;
    for (std::int64_t pixel = 0; pixel < count; ++pixel) {
        transparent += view.pixels[pixel * bytesPerPixel + 3] < 255 ? 1 : 0;
    }
    if (transparent > 0) {
        findings.push_back({FindingKind::ignoredAlpha, name,
                            percentage(static_cast<double>(transparent) / static_cast<double>(count)) +
                                u" of the pixels are transparent, but the material is opaque and "
                                "ignores alpha."_s});
    }
}

void checkNormals(const QImage& image, const QString& name, bool isGenerated, Findings& findings) {
    // Some of the normals of a good map are off, at sharp edges and where it has been rescaled.
    constexpr double toleratedShare = 0.1;
    constexpr double toleratedInward = 0.01;
    // A map that fits one direction well has a correlation near -1 or 1, also with detail painted over it;
    // one that fits neither, near 0.
    constexpr double clearDirection = 0.3;

    const NormalStatistics statistics = normalStatistics(image);
    if (statistics.offLength > toleratedShare) {
        findings.push_back({FindingKind::normalNotUnit, name,
                            percentage(statistics.offLength) +
                                u" of the normals are not of length 1: this may be no normal map, "
                                "or one that was edited as a picture."_s});
    }
    if (statistics.inward > toleratedInward) {
        findings.push_back({FindingKind::normalInward, name,
                            percentage(statistics.inward) +
                                u" of the normals point into the surface: their blue is below "
                                "128."_s});
    }
    // Of vectors that are no normals the direction tells nothing.
    if (statistics.greenDirection < clearDirection || statistics.offLength > toleratedShare) {
        return;
    }
    if (isGenerated) {
        findings.push_back({FindingKind::normalGreenDown, name,
                            u"Green points down, as it does in a generated map unless it is "
                            "flipped: if light seems to come from below, export with Flip "
                            "Green."_s});
    } else {
        findings.push_back({FindingKind::normalInverted, name,
                            u"Green looks inverted: the map fits a surface only if green points "
                            "down (DirectX), and in glTF it points up."_s});
    }
}

}  // namespace quarlin
