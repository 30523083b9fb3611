#include "engine/base/export_folder.h"
#include "engine/base/imaging_errors.h"
#include "engine/base/output_size.h"
#include "engine/base/rendered_texture.h"
#include "engine/base/texture_processor_error.h"
#include "engine/documents/documents.h"
#include "engine/generator/generated_strips.h"
#include "engine/generator/generator.h"
#include "imaging/base/parallel.h"
#include "imaging/base/pixel_size.h"
#include "imaging/pixels/pixel_image.h"
#include "imaging/png/png_file.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/normal_output_names.h"
#include "model/texture_asset.h"

#include <utility>
#include <vector>

namespace quarlin {

namespace {

/// Encodes a strip of `map` into its file.
void encodeStrip(PngFile& file, std::int64_t index, GeneratedMap map, const ImageView& source,
                 const GeneratedStrip& strip) {
    if (map == GeneratedMap::source) {
        file.encodeStrip(index, source.row(strip.rows.first));
    } else if (isGray(map)) {
        file.encodeGrayStrip(index, strip.maps[map].data());
    } else {
        file.encodeStrip(index, strip.maps[map].data());
    }
}

/// Adds the images that `settings` ask for to `files`, in writing order, and encodes them. A strip of
/// the source goes all the way from its maps to its part of every file before the next one begins, so that no
/// map is ever held whole.
void encodeMaps(const ImageView& source, const NormalOutputNames& names,
                const NormalGeneratorSettings& settings, PngFileSet& files) {
    std::vector<std::pair<GeneratedMap, PngFile*>> images;
    for (const GeneratedFile file : allCases<GeneratedFile>()) {
        if (const auto map = tableRow(file).map; map && isWritten(file, settings)) {
            images.emplace_back(*map, &files.add(names[file]));
        }
    }
    const RowStrips strips = files.strips();
    forEachInParallel(strips.count(), [&](std::int64_t index) {
        const GeneratedStrip strip = generateStrip(source, settings, strips[index]);
        for (const auto& [map, file] : images) {
            encodeStrip(*file, index, map, source, strip);
        }
    });
}

}  // namespace

ExportResult exportGeneratedSet(const std::optional<TextureAsset>& source,
                                const NormalGeneratorSettings& settings, const QUrl& parentDirectory) {
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
