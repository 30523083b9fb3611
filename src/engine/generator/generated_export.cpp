#include "engine/export_folder.h"
#include "engine/generator/generated_strips.h"
#include "engine/imaging_errors.h"
#include "engine/rendered_texture.h"
#include "engine/texture_processor.h"
#include "imaging/png/png_file.h"

#include <functional>
#include <vector>

namespace quarlin {

namespace {

/// Encodes one strip of a map into its file.
using EncodeMap = std::function<void(PngFile& file, std::int64_t index, const GeneratedStrip& strip)>;

EncodeMap grayMap(PixelBuffer GeneratedStrip::*map) {
    return [map](PngFile& file, std::int64_t index, const GeneratedStrip& strip) {
        file.encodeGrayStrip(index, (strip.*map).data());
    };
}

EncodeMap colorMap(PixelBuffer GeneratedStrip::*map) {
    return [map](PngFile& file, std::int64_t index, const GeneratedStrip& strip) {
        file.encodeStrip(index, (strip.*map).data());
    };
}

/// Adds the images that `settings` ask for to `files`, in writing order, and encodes them. Each strip of the
/// source is turned into its maps, and these into their part of the files, before the next: no map is ever
/// held whole.
void encodeMaps(const ImageView& source, const NormalOutputNames& names,
                const NormalGeneratorSettings& settings, PngFileSet& files) {
    struct Map {
        PngFile& file;
        EncodeMap encode;
    };
    std::vector<Map> maps;
    const auto add = [&](bool isWanted, const QString& name, const EncodeMap& encode) {
        if (isWanted) {
            maps.push_back({files.add(name), encode});
        }
    };
    add(true, names.baseColor(), [&source](PngFile& file, std::int64_t index, const GeneratedStrip& strip) {
        file.encodeStrip(index, source.row(strip.rows.first));
    });
    add(true, names.normal(), colorMap(&GeneratedStrip::normal));
    add(settings.exportHeight, names.height(), grayMap(&GeneratedStrip::height));
    add(settings.exportRoughness, names.roughness(), grayMap(&GeneratedStrip::roughness));
    add(settings.exportGloss, names.gloss(), grayMap(&GeneratedStrip::gloss));
    add(settings.exportMetallic, names.metallic(), grayMap(&GeneratedStrip::metallic));
    add(settings.exportAO, names.occlusion(), grayMap(&GeneratedStrip::occlusion));
    add(settings.exportORM, names.orm(), colorMap(&GeneratedStrip::orm));

    const RowStrips strips = files.strips();
    forEachInParallel(strips.count(), [&](std::int64_t index) {
        const GeneratedStrip strip = generateStrip(source, settings, strips[index]);
        for (const Map& map : maps) {
            map.encode(map.file, index, strip);
        }
    });
}

}  // namespace

NormalOutputs TextureProcessor::makeGeneratedNormalOutputs(const QUrl& sourceURL,
                                                           const NormalGeneratorSettings& settings,
                                                           std::int64_t width, std::int64_t height) const {
    return generateOutputs(ImageView(renderFile(sourceURL, width, height)), settings);
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
    const QImage rendered = renderTexture(*source, size.width, size.height);

    ExportResult result{folder, {}};
    PngFileSet images(folder, size.width, size.height);
    encodeMaps(ImageView(rendered), names, settings, images);
    reportingEngineErrors(FileKind::image, [&] { images.commit(result.files); });
    if (settings.exportGLTF) {
        writeText(makeGeneratedGLTFData(names, settings), names.gltf(), result);
    }
    if (settings.exportNotes) {
        writeText(makeNormalNotes(names, settings, *source).toUtf8(), names.notes(), result);
    }
    return result;
}

}  // namespace quarlin
