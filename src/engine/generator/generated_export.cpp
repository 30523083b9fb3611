#include "engine/base/export_folder.h"
#include "engine/base/output_size.h"
#include "engine/base/set_export.h"
#include "engine/base/texture_processor_error.h"
#include "engine/base/texture_source.h"
#include "engine/documents/documents.h"
#include "engine/generator/generated_strips.h"
#include "engine/generator/generator.h"
#include "imaging/base/pixel_size.h"
#include "imaging/pixels/row_window.h"
#include "imaging/png/png_file_set.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/normal_output_names.h"
#include "model/texture_asset.h"

#include <optional>
#include <vector>

namespace quarlin {

namespace {

/// Encodes a strip of `map`.
PngStrip encodeMap(const PngEncoder& encoder, std::int64_t index, GeneratedMap map, const RowWindow& source,
                   const GeneratedStrip& strip) {
    if (map == GeneratedMap::source) {
        return encoder.encodeStrip(index, source.row(strip.rows.first));
    }
    if (isGray(map)) {
        return encoder.encodeGrayStrip(index, strip.maps[map].data());
    }
    return encoder.encodeStrip(index, strip.maps[map].data());
}

/// The pass over the rows of the source that writes the images which `settings` ask for. A strip of the
/// source goes all the way from its maps to its part of every file, so that no map is ever held whole.
PngPass passOf(const TextureSource& source, PixelSize size, const NormalOutputNames& names,
               const NormalGeneratorSettings& settings) {
    PngPass pass;
    std::vector<GeneratedMap> maps;
    for (const GeneratedFile file : allCases<GeneratedFile>()) {
        if (const auto map = tableRow(file).map; map && isWritten(file, settings)) {
            maps.push_back(*map);
            pass.names += names[file];
        }
    }
    pass.open = [&source, size] { return source.open(size); };
    pass.margin = marginRows(settings);
    pass.encode = [maps, &settings](const PngEncoder& encoder, std::int64_t index, const RowWindow& input,
                                    const std::vector<bool>& wanted) {
        const GeneratedStrip strip = generateStrip(input, settings, encoder.strips()[index]);
        std::vector<PngStrip> encoded(maps.size());
        for (std::size_t image = 0; image < maps.size(); ++image) {
            if (wanted[image]) {
                encoded[image] = encodeMap(encoder, index, maps[image], input, strip);
            }
        }
        return encoded;
    };
    return pass;
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
    const TextureSource texture(*source);
    std::optional<LoadingExport> loading;
    if (!source->isLoaded()) {
        loading = {{0}, [&] { texture.expectReadable(); }};
    }
    ExportResult result = exportImages(parentDirectory, names.materialName, size,
                                       {passOf(texture, size, names, settings)}, loading);
    if (settings.exportGLTF) {
        writeText(makeGeneratedGLTFData(names, settings), names.gltf(), result);
    }
    if (settings.exportNotes) {
        writeText(makeNormalNotes(names, settings, *source).toUtf8(), names.notes(), result);
    }
    return result;
}

}  // namespace quarlin
