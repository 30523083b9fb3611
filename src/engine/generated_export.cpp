#include "export_folder.h"
#include "file_names.h"
#include "image_view.h"
#include "png_file.h"
#include "texture_processor.h"

namespace quarlin {

NormalOutputs TextureProcessor::makeGeneratedNormalOutputs(const QUrl& sourceURL,
                                                           const NormalGeneratorSettings& settings,
                                                           std::int64_t width, std::int64_t height) const {
    PixelImage source = renderImage(sourceURL, width, height);
    const HeightField heights = smoothedHeightValues(source, settings);
    GeneratedSurfaceMaps maps = generatedSurfaceMaps(source, heights, settings);
    return {.source = std::move(source),
            .height = heightImage(heights, width, height),
            .normal = normalImage(heights, width, height, settings),
            .roughness = std::move(maps.roughness),
            .gloss = std::move(maps.gloss),
            .metallic = std::move(maps.metallic),
            .occlusion = std::move(maps.occlusion),
            .orm = std::move(maps.orm)};
}

ExportResult TextureProcessor::exportGeneratedNormalSet(const std::optional<TextureAsset>& source,
                                                        const NormalGeneratorSettings& settings,
                                                        const QUrl& parentDirectory) const {
    if (!source) {
        throw TextureProcessorError::missingNormalSource();
    }
    const PixelSize size =
        resolvedOutputSize(source->pixelWidth, source->pixelHeight, settings.outputResolution);
    const NormalOutputNames names{settings.safeMaterialName()};
    const QUrl folder = createExportFolder(parentDirectory, names.materialName);
    const NormalOutputs outputs = makeGeneratedNormalOutputs(source->url, settings, size.width, size.height);

    ExportResult result{folder, {}};
    const auto writeImage = [&](const PixelImage& image, const QString& name) {
        writePNG(image, fileIn(folder, name));
        result.files += name;
    };
    const auto writeText = [&](const QByteArray& text, const QString& name) {
        writeTextFile(text, fileIn(folder, name));
        result.files += name;
    };
    writeImage(outputs.source, names.baseColor());
    writeImage(outputs.normal, names.normal());
    if (settings.exportHeight) {
        writeImage(outputs.height, names.height());
    }
    if (settings.exportRoughness) {
        writeImage(outputs.roughness, names.roughness());
    }
    if (settings.exportGloss) {
        writeImage(outputs.gloss, names.gloss());
    }
    if (settings.exportMetallic) {
        writeImage(outputs.metallic, names.metallic());
    }
    if (settings.exportAO) {
        writeImage(outputs.occlusion, names.occlusion());
    }
    if (settings.exportORM) {
        writeImage(outputs.orm, names.orm());
    }
    if (settings.exportGLTF) {
        writeText(makeGeneratedGLTFData(names, settings), names.gltf());
    }
    if (settings.exportNotes) {
        writeText(makeNormalNotes(names, settings, *source).toUtf8(), names.notes());
    }
    return result;
}

}  // namespace quarlin
