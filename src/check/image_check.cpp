#include "image_check.h"

#include "file_bytes.h"
#include "file_names.h"
#include "image_decoder.h"
#include "image_header.h"
#include "image_view.h"
#include "normal_statistics.h"
#include "set_check.h"

#include <QFileInfo>

#include <cmath>

namespace quarlin {

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
    const bool isJPEGName = extension == QStringLiteral("jpg") || extension == QStringLiteral("jpeg");
    return extension.isEmpty() || isJPEGName == (format == ImageFormat::jpeg);
}

void checkFormat(const QByteArray& bytes, const QString& name, Findings& findings) {
    const ImageFormat format = imageFormat(bytes);
    if (format == ImageFormat::other) {
        findings.push_back(
            {FindingKind::wrongFormat, name, QStringLiteral("The image is neither PNG nor JPEG.")});
    } else if (!fitsName(format, name)) {
        findings.push_back(
            {FindingKind::wrongFormat, name,
             QStringLiteral("The image is a ") +
                 (format == ImageFormat::png ? QStringLiteral("PNG") : QStringLiteral("JPEG")) +
                 QStringLiteral(", which its name does not say.")});
    }
}

void checkHeader(const PngHeader& header, const QString& name, ImageUse use, Findings& findings) {
    constexpr int usualDepth = 8;
    const bool isGrey = header.color == PngColor::grey || header.color == PngColor::greyAlpha;
    if (isGrey && use != ImageUse::baseColor) {
        findings.push_back({FindingKind::wrongChannels, name,
                            QStringLiteral("The image is grey: red, green and blue are the same.")});
    }
    if (header.color == PngColor::indexed) {
        findings.push_back({FindingKind::indexedColor, name,
                            QStringLiteral("The image has a palette of at most 256 colours.")});
    } else if (header.bitDepth != usualDepth) {
        findings.push_back({FindingKind::wrongDepth, name,
                            QStringLiteral("The image has ") + QString::number(header.bitDepth) +
                                QStringLiteral(" bits per channel; 8 are used.")});
    }
}

void checkSize(const QSize& size, const QString& name, Findings& findings) {
    if (!isPowerOfTwo(size.width()) || !isPowerOfTwo(size.height())) {
        findings.push_back({FindingKind::notPowerOfTwo, name,
                            QStringLiteral("The image is ") + sizeText(size) +
                                QStringLiteral(": a side is no power of two, so it is rescaled on upload.")});
    }
    if (size.width() > longestSide || size.height() > longestSide) {
        findings.push_back({FindingKind::tooLarge, name,
                            QStringLiteral("The image is ") + sizeText(size) +
                                QStringLiteral(": a side is longer than ") + QString::number(longestSide) +
                                QStringLiteral(" pixels, so it is scaled down on upload.")});
    }
}

void checkFileName(const QString& name, Findings& findings) {
    const qsizetype length = fileStem(QUrl::fromLocalFile(name)).toUtf8().size();
    if (length > longestInventoryName) {
        findings.push_back({FindingKind::fileNameCut, name,
                            QStringLiteral("Uploaded alone, the image keeps ") +
                                QString::number(longestInventoryName) + QStringLiteral(" of the ") +
                                QString::number(length) + QStringLiteral(" bytes of its name.")});
    }
}

}  // namespace

QImage CheckedImages::read(const QString& name, ImageUse use, Findings& findings) {
    const auto known = m_images.find(name);
    if (known != m_images.end()) {
        return known->second;
    }
    QImage& image = m_images[name];
    const QUrl url = fileIn(m_folder, name);
    const std::optional<FileBytes> file = readFile(url);
    if (!file) {
        findings.push_back({FindingKind::missingImage, name,
                            QFileInfo::exists(url.toLocalFile()) ? QStringLiteral("The image can't be read.")
                                                                 : QStringLiteral("The image is missing.")});
        return image;
    }
    checkFileName(name, findings);
    image = decodeImage(file->bytes);
    if (image.isNull()) {
        findings.push_back(
            {FindingKind::undecodableImage, name, QStringLiteral("The file is no whole, intact image.")});
        return image;
    }
    checkFormat(file->bytes, name, findings);
    if (const auto header = readPngHeader(file->bytes)) {
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
        findings.push_back(
            {FindingKind::ignoredAlpha, name,
             percentage(static_cast<double>(transparent) / static_cast<double>(count)) +
                 QStringLiteral(" of the pixels are transparent, but the material is opaque and "
                                "ignores alpha.")});
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
        findings.push_back(
            {FindingKind::normalNotUnit, name,
             percentage(statistics.offLength) +
                 QStringLiteral(" of the normals are not of length 1: this may be no normal map, "
                                "or one that was edited as a picture.")});
    }
    if (statistics.inward > toleratedInward) {
        findings.push_back({FindingKind::normalInward, name,
                            percentage(statistics.inward) +
                                QStringLiteral(" of the normals point into the surface: their blue is below "
                                               "128.")});
    }
    // Of vectors that are no normals the direction tells nothing.
    if (statistics.greenDirection < clearDirection || statistics.offLength > toleratedShare) {
        return;
    }
    if (isGenerated) {
        findings.push_back({FindingKind::normalGreenDown, name,
                            QStringLiteral("Green points down, as it does in a generated map unless it is "
                                           "flipped: if light seems to come from below, export with Flip "
                                           "Green.")});
    } else {
        findings.push_back(
            {FindingKind::normalInverted, name,
             QStringLiteral("Green looks inverted: the map fits a surface only if green points "
                            "down (DirectX), and in glTF it points up.")});
    }
}

}  // namespace quarlin
