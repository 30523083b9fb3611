#include "export_folder.h"
#include "file_names.h"
#include "generated_bands.h"
#include "png_file.h"
#include "rendered_texture.h"
#include "texture_processor.h"

#include <functional>
#include <vector>

namespace quarlin {

namespace {

/// One image of a generated set on its way to its file.
struct MapFile {
    using Encode = std::function<void(PngEncoder& png, std::int64_t index, const GeneratedBand& band)>;

    QString name;
    /// Encodes one band of the map.
    Encode encode;
    PngEncoder png;
};

MapFile::Encode greyMap(PixelBuffer GeneratedBand::*map) {
    return [map](PngEncoder& png, std::int64_t index, const GeneratedBand& band) {
        png.encodeGreyBand(index, (band.*map).data());
    };
}

/// The images that `settings` ask for, in writing order, encoded. Each band of the source is turned into its
/// maps, and these into their part of the files, before the next: no map is ever held whole.
std::vector<MapFile> encodeMaps(const ImageView& source, const NormalOutputNames& names,
                                const NormalGeneratorSettings& settings) {
    std::vector<MapFile> files;
    const auto add = [&](bool isWanted, const QString& name, const MapFile::Encode& encode) {
        if (isWanted) {
            files.push_back({name, encode, PngEncoder(source.width, source.height)});
        }
    };
    add(true, names.baseColor(), [&source](PngEncoder& png, std::int64_t index, const GeneratedBand& band) {
        png.encodeBand(index, source.row(band.rows.first));
    });
    add(true, names.normal(), [](PngEncoder& png, std::int64_t index, const GeneratedBand& band) {
        png.encodeBand(index, band.normal.data());
    });
    add(settings.exportHeight, names.height(), greyMap(&GeneratedBand::height));
    add(settings.exportRoughness, names.roughness(), greyMap(&GeneratedBand::roughness));
    add(settings.exportGloss, names.gloss(), greyMap(&GeneratedBand::gloss));
    add(settings.exportMetallic, names.metallic(), greyMap(&GeneratedBand::metallic));
    add(settings.exportAO, names.occlusion(), greyMap(&GeneratedBand::occlusion));
    add(settings.exportORM, names.orm(), [](PngEncoder& png, std::int64_t index, const GeneratedBand& band) {
        png.encodeBand(index, ormPixels(band).data());
    });

    const RowBands bands = files.front().png.bands();
    forEachInParallel(bands.count(), [&](std::int64_t index) {
        const GeneratedBand band = generateBand(source, settings, bands[index]);
        for (MapFile& file : files) {
            file.encode(file.png, index, band);
        }
    });
    return files;
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
    for (const MapFile& file : encodeMaps(ImageView(rendered), names, settings)) {
        writePngFile(file.png, fileIn(folder, file.name));
        result.files += file.name;
    }
    const auto writeText = [&](const QByteArray& text, const QString& name) {
        writeTextFile(text, fileIn(folder, name));
        result.files += name;
    };
    if (settings.exportGLTF) {
        writeText(makeGeneratedGLTFData(names, settings), names.gltf());
    }
    if (settings.exportNotes) {
        writeText(makeNormalNotes(names, settings, *source).toUtf8(), names.notes());
    }
    return result;
}

}  // namespace quarlin
