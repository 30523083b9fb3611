#include "export_folder.h"
#include "generated_bands.h"
#include "png_file.h"
#include "rendered_texture.h"
#include "texture_processor.h"

#include <functional>
#include <vector>

namespace quarlin {

namespace {

/// Encodes one band of a map into its file.
using EncodeMap = std::function<void(PngFile& file, std::int64_t index, const GeneratedBand& band)>;

EncodeMap greyMap(PixelBuffer GeneratedBand::*map) {
    return [map](PngFile& file, std::int64_t index, const GeneratedBand& band) {
        file.encodeGreyBand(index, (band.*map).data());
    };
}

EncodeMap colourMap(PixelBuffer GeneratedBand::*map) {
    return [map](PngFile& file, std::int64_t index, const GeneratedBand& band) {
        file.encodeBand(index, (band.*map).data());
    };
}

/// Adds the images that `settings` ask for to `files`, in writing order, and encodes them. Each band of the
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
    add(true, names.baseColor(), [&source](PngFile& file, std::int64_t index, const GeneratedBand& band) {
        file.encodeBand(index, source.row(band.rows.first));
    });
    add(true, names.normal(), colourMap(&GeneratedBand::normal));
    add(settings.exportHeight, names.height(), greyMap(&GeneratedBand::height));
    add(settings.exportRoughness, names.roughness(), greyMap(&GeneratedBand::roughness));
    add(settings.exportGloss, names.gloss(), greyMap(&GeneratedBand::gloss));
    add(settings.exportMetallic, names.metallic(), greyMap(&GeneratedBand::metallic));
    add(settings.exportAO, names.occlusion(), greyMap(&GeneratedBand::occlusion));
    add(settings.exportORM, names.orm(), colourMap(&GeneratedBand::orm));

    const RowBands bands = files.bands();
    forEachInParallel(bands.count(), [&](std::int64_t index) {
        const GeneratedBand band = generateBand(source, settings, bands[index]);
        for (const Map& map : maps) {
            map.encode(map.file, index, band);
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
    images.commit(result.files);
    if (settings.exportGLTF) {
        writeText(makeGeneratedGLTFData(names, settings), names.gltf(), result);
    }
    if (settings.exportNotes) {
        writeText(makeNormalNotes(names, settings, *source).toUtf8(), names.notes(), result);
    }
    return result;
}

}  // namespace quarlin
