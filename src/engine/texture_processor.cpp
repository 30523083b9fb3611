#include "engine/texture_processor.h"

#include "engine/base/generated_maps.h"
#include "engine/base/imaging_errors.h"
#include "engine/base/on_screen_image.h"
#include "engine/base/output_size.h"
#include "engine/base/rendered_texture.h"
#include "engine/base/texture_processor_error.h"
#include "engine/base/texture_source.h"
#include "engine/documents/documents.h"
#include "engine/generator/generated_strips.h"
#include "engine/generator/generator.h"
#include "engine/material/material.h"
#include "imaging/files/file_names.h"
#include "imaging/pixels/image_rows.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/png/png_file_set.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/normal_output_names.h"
#include "model/output_names.h"
#include "model/previews.h"
#include "model/texture_asset.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

PixelImage toPixelImage(const QImage& image) {
    return {image.width(), image.height(), {image.constBits(), image.constBits() + image.sizeInBytes()}};
}

TextureAsset openedAsset(const QUrl& url, ColorHandling handling) {
    const OpenedImage image = openFileRows(openInputFile(url), handling);
    TextureAsset asset(url, lastPathComponent(url), image.rows->width(), image.rows->height(), QImage());
    asset.keepsSamples = handling == ColorHandling::keepSamples;
    asset.convertedFrom = image.convertedFrom;
    return asset;
}

}  // namespace

TextureAsset TextureProcessor::loadAsset(const QUrl& url) const {
    DecodedFile file = decodeFile(url);
    const QSize size = file.image.size();
    TextureAsset asset(url, lastPathComponent(url), size.width(), size.height(), std::move(file.image));
    asset.decodedFrom = file.stamp;
    asset.convertedFrom = file.convertedFrom;
    return asset;
}

TextureAsset TextureProcessor::openAsset(const QUrl& url) const {
    return openedAsset(url, ColorHandling::convert);
}

TextureAsset TextureProcessor::openDataAsset(const QUrl& url) const {
    return openedAsset(url, ColorHandling::keepSamples);
}

TextureAsset TextureProcessor::openAsset(const QUrl& url, TextureChannel channel) const {
    TextureAsset asset = openDataAsset(url);
    asset.fileName += u", "_s + title(channel);
    asset.channel = channel;
    return asset;
}

void TextureProcessor::expectReadable(const TextureAsset& asset) const {
    TextureSource(asset).expectReadable();
}

QImage TextureProcessor::loadCGImage(const QUrl& url) const {
    return decodeFile(url).image.convertToFormat(pixelFormat);
}

PixelImage TextureProcessor::renderImage(const QUrl& url, std::int64_t width, std::int64_t height) const {
    return toPixelImage(renderFile(url, {width, height}));
}

PixelImage TextureProcessor::renderImage(const TextureAsset& asset, std::int64_t width,
                                         std::int64_t height) const {
    return toPixelImage(renderTexture(asset, {width, height}));
}

QImage TextureProcessor::makeCGImage(const PixelImage& image, const QUrl& urlForError) const {
    return onScreenImage(image, urlForError);
}

QImage TextureProcessor::makeNSImage(const PixelImage& image) const { return onScreenImage(image); }

void TextureProcessor::writePNG(const PixelImage& image, const QUrl& url) const {
    if (!isImage(image)) {
        throw TextureProcessorError::cannotCreatePNG(url);
    }
    const QUrl folder = url.adjusted(QUrl::RemoveFilename);
    PngFileSet files(
        folder, {image.width, image.height},
        {plainPass(lastPathComponent(url), [&] { return std::make_unique<ImageRows>(ImageView(image)); })});
    files.encode();
    QStringList written;
    reportingEngineErrors(FileKind::image, [&] { files.commit(written); });
}

PixelSize TextureProcessor::resolvedOutputSize(const TextureAsset& base, const ConversionSettings& settings) {
    return quarlin::resolvedOutputSize(base, settings);
}

PixelSize TextureProcessor::previewSize(PixelSize size) { return quarlin::previewSize(size, previewSide); }

PixelImage TextureProcessor::makeORM(const TextureMap& textures, const ConversionSettings& settings,
                                     std::int64_t width, std::int64_t height) const {
    return quarlin::makeORM(textures, settings, width, height);
}

NormalOutputs TextureProcessor::makeGeneratedNormalOutputs(const QUrl& sourceURL,
                                                           const NormalGeneratorSettings& settings,
                                                           std::int64_t width, std::int64_t height) const {
    return generateOutputs(ImageView(renderFile(sourceURL, {width, height})), settings);
}

QByteArray TextureProcessor::makeGLTFData(const OutputNames& names, const ConversionSettings& settings,
                                          bool hasNormal) {
    return quarlin::makeGLTFData(names, settings, hasNormal);
}

QString TextureProcessor::makeNotes(const OutputNames& names, const ConversionSettings& settings,
                                    const TextureMap& textures, bool hasNormal) {
    return quarlin::makeNotes(names, settings, textures, hasNormal);
}

QByteArray TextureProcessor::makeGeneratedGLTFData(const NormalOutputNames& names,
                                                   const NormalGeneratorSettings& settings) {
    return quarlin::makeGeneratedGLTFData(names, settings);
}

QString TextureProcessor::makeNormalNotes(const NormalOutputNames& names,
                                          const NormalGeneratorSettings& settings,
                                          const TextureAsset& source) {
    return quarlin::makeNormalNotes(names, settings, source);
}

ExportResult TextureProcessor::exportMaterialSet(const TextureMap& textures,
                                                 const ConversionSettings& settings,
                                                 const QUrl& parentDirectory) const {
    return quarlin::exportMaterialSet(textures, settings, parentDirectory);
}

ExportResult TextureProcessor::exportGeneratedNormalSet(const std::optional<TextureAsset>& source,
                                                        const NormalGeneratorSettings& settings,
                                                        const QUrl& parentDirectory) const {
    return exportGeneratedSet(source, settings, parentDirectory);
}

OutputPreviews TextureProcessor::buildPreviews(const TextureMap& textures, const ConversionSettings& settings,
                                               std::int64_t longestSide) const {
    return buildMaterialPreviews(textures, settings, longestSide);
}

QImage TextureProcessor::makeMaterialImage(MaterialImage image, const TextureMap& textures,
                                           const ConversionSettings& settings,
                                           const RowProgress& progress) const {
    return quarlin::makeMaterialImage(image, textures, settings, progress);
}

QImage TextureProcessor::makeGeneratedMap(GeneratedMap map, const TextureAsset& source,
                                          const NormalGeneratorSettings& settings,
                                          const RowProgress& progress) const {
    return quarlin::makeGeneratedMap(map, source, settings, progress);
}

NormalPreviews TextureProcessor::buildNormalPreviews(const std::optional<TextureAsset>& source,
                                                     const NormalGeneratorSettings& settings,
                                                     std::int64_t longestSide) const {
    return buildGeneratedPreviews(source, settings, longestSide);
}

}  // namespace quarlin
