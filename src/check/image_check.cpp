#include "check/image_check.h"

#include "check/image_header.h"
#include "check/image_statistics.h"
#include "check/normal_statistics.h"
#include "check/set_check.h"
#include "imaging/decode/decode_error.h"
#include "imaging/decode/image_decoder.h"
#include "imaging/decode/image_file.h"
#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"

#include <QFileInfo>

#include <array>
#include <bit>
#include <cmath>
#include <new>
#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

bool isPowerOfTwo(int side) { return std::has_single_bit(static_cast<unsigned>(side)); }

QString sizeText(const QSize& size) {
    return QString::number(size.width()) + u'x' + QString::number(size.height());
}

/// A share of 0...1 as a whole percentage, at least 1.
QString percentage(double share) { return QString::number(std::max(1L, std::lround(share * 100))) + u'%'; }

/// Whether the name's extension is one of `format`; true without an extension.
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
                                u", but its name says otherwise."_s});
    }
}

void checkHeader(const PngHeader& header, const QString& name, ImageUse use, Findings& findings) {
    constexpr int usualDepth = 8;
    const bool isGray = header.color == PngColor::gray || header.color == PngColor::grayAlpha;
    if (isGray && (use == ImageUse::orm || use == ImageUse::normal)) {
        findings.push_back(findingOf(FindingKind::wrongChannels, name));
    }
    if (header.color == PngColor::indexed) {
        findings.push_back(findingOf(FindingKind::indexedColor, name));
    } else if (header.bitDepth != usualDepth) {
        findings.push_back(
            findingOf(FindingKind::wrongDepth, name, u"it has "_s + QString::number(header.bitDepth)));
    }
}

void checkSize(const QSize& size, const QString& name, Findings& findings) {
    if (!isPowerOfTwo(size.width()) || !isPowerOfTwo(size.height())) {
        findings.push_back(findingOf(FindingKind::notPowerOfTwo, name, u"it is "_s + sizeText(size)));
    }
    if (size.width() > longestSide || size.height() > longestSide) {
        findings.push_back(findingOf(FindingKind::tooLarge, name, u"it is "_s + sizeText(size)));
    }
}

void checkFileName(const QString& name, Findings& findings) {
    const qsizetype length = fileStem(QUrl::fromLocalFile(name)).toUtf8().size();
    if (length > longestInventoryName) {
        findings.push_back(findingOf(FindingKind::fileNameCut, name, u"it has "_s + QString::number(length)));
    }
}

}  // namespace

std::optional<CheckedImages::Content> CheckedImages::decoded(const QString& name, Findings& findings) const {
    const auto embedded = m_embedded.find(name);
    try {
        if (embedded != m_embedded.end()) {
            QImage image = decodeImage(embedded->second);
            return Content{embedded->second, std::move(image)};
        }
        checkFileName(name, findings);
        ImageFile file = readImageFile(fileIn(m_folder, name));
        QByteArray bytes = file.file->all();
        return Content{std::move(bytes), std::move(file.image).convertToFormat(pixelFormat)};
    } catch (const FileError& error) {
        findings.push_back({FindingKind::missingImage, name,
                            QFileInfo::exists(error.file().toLocalFile()) ? u"The image can't be read."_s
                                                                          : u"The image is missing."_s});
    } catch (const DecodeError&) {
        findings.push_back(findingOf(FindingKind::undecodableImage, name));
    } catch (const std::bad_alloc&) {
        findings.push_back(findingOf(FindingKind::undecodableImage, name));
    }
    return std::nullopt;
}

QImage CheckedImages::read(const QString& name, ImageUse use, Findings& findings) {
    const auto known = m_images.find(name);
    if (known != m_images.end()) {
        return known->second;
    }
    QImage& image = m_images[name];
    const std::optional<Content> file = decoded(name, findings);
    if (!file) {
        return image;
    }
    image = file->image;
    const QByteArray& bytes = file->bytes;
    checkFormat(bytes, name, findings);
    constexpr int inks = 4;
    if (jpegComponents(bytes) == inks) {
        findings.push_back(findingOf(FindingKind::cmykImage, name));
    }
    if (const auto header = readPngHeader(bytes)) {
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
        const double share = static_cast<double>(transparent) / static_cast<double>(count);
        findings.push_back(
            findingOf(FindingKind::ignoredAlpha, name, percentage(share) + u" of the pixels"_s));
    }
}

void checkORM(const QImage& image, const CheckedMaterial& material, Findings& findings) {
    const QString& name = *material.metallicRoughness;
    const ImageStatistics statistics = imageStatistics(image);
    if (statistics.isGray && !statistics.isConstant(0)) {
        findings.push_back(findingOf(FindingKind::grayORM, name));
    }
    if (statistics.greatest[0] == 0) {
        findings.push_back(findingOf(FindingKind::blackOcclusion, name));
    }
    if (material.isRoughnessOff && !statistics.isConstant(1)) {
        findings.push_back(findingOf(FindingKind::factorOff, material.document, u"roughnessFactor"_s));
    }
    if (material.isMetallicOff && !statistics.isConstant(2)) {
        findings.push_back(findingOf(FindingKind::factorOff, material.document, u"metallicFactor"_s));
    }
}

void checkForNormals(const QImage& image, const QString& name, Findings& findings) {
    // A picture with so many vectors of length 1 that also fit together as slopes of a surface is no
    // accident.
    constexpr double toleratedShare = 0.1;
    constexpr double clearDirection = 0.3;
    constexpr double middle = 127.5;
    constexpr double nearMiddle = 16;
    const NormalStatistics normals = normalStatistics(image);
    if (normals.offLength > toleratedShare || std::abs(normals.greenDirection) < clearDirection) {
        return;
    }
    const std::array<double, 4> mean = imageStatistics(image).mean;
    if (std::abs(mean[0] - middle) < nearMiddle && std::abs(mean[1] - middle) < nearMiddle) {
        findings.push_back(findingOf(FindingKind::normalAsColor, name));
    }
}

void checkNormals(const QImage& image, const QString& name, bool isGenerated, Findings& findings) {
    // In a good map some normals do not have length 1: at sharp edges, and where the map has been rescaled.
    constexpr double toleratedShare = 0.1;
    constexpr double toleratedInward = 0.01;
    // The correlation is near -1 or 1 for a map that fits one direction well, even with details painted over
    // it, and near 0 for a map that fits neither.
    constexpr double clearDirection = 0.3;

    const NormalStatistics statistics = normalStatistics(image);
    if (statistics.offLength > toleratedShare) {
        findings.push_back(
            findingOf(FindingKind::normalNotUnit, name, percentage(statistics.offLength) + u" of them"_s));
    }
    if (statistics.inward > toleratedInward) {
        findings.push_back(
            findingOf(FindingKind::normalInward, name, percentage(statistics.inward) + u" of them"_s));
    }
    // The direction means nothing if the vectors are not normals.
    if (statistics.greenDirection < clearDirection || statistics.offLength > toleratedShare) {
        return;
    }
    findings.push_back(
        findingOf(isGenerated ? FindingKind::normalGreenDown : FindingKind::normalInverted, name));
}

}  // namespace quarlin
