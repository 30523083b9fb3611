#include "engine/export_folder.h"
#include "engine/imaging_errors.h"
#include "engine/material/material_inputs.h"
#include "engine/texture_processor.h"
#include "imaging/png/png_file.h"

#include <exception>
#include <vector>

namespace quarlin {

namespace {

/// Writes the images of the set. An input that could not be read is reported when its image's turn comes:
/// those before it are written.
void writeImages(const MaterialInputs& inputs, const ConversionSettings& settings, const OutputNames& names,
                 ExportResult& result) {
    PngFileSet files(result.folderURL, inputs.size().width, inputs.size().height);
    std::vector<RowSource> images;
    std::exception_ptr failure;
    try {
        images.push_back(rowsOf(ImageView(*inputs.texture(TextureSlotKind::baseColor))));
        files.add(names.baseColor());
        images.push_back(ormRows(inputs, settings));
        files.add(names.orm());
        if (const QImage* normal = inputs.texture(TextureSlotKind::normal)) {
            images.push_back(conditionedNormalRows(*normal, settings));
            files.add(names.normal());
        }
    } catch (...) {
        failure = std::current_exception();
    }
    files.encode(images);
    reportingEngineErrors(FileKind::image, [&] { files.commit(result.files); });
    if (failure) {
        std::rethrow_exception(failure);
    }
}

}  // namespace

ExportResult TextureProcessor::exportMaterialSet(const TextureMap& textures,
                                                 const ConversionSettings& settings,
                                                 const QUrl& parentDirectory) const {
    const auto base = textures.find(TextureSlotKind::baseColor);
    if (base == textures.end()) {
        throw TextureProcessorError::missingBaseColor();
    }
    const PixelSize size = resolvedOutputSize(base->second, settings);
    const OutputNames names{settings.safeMaterialName()};
    const QUrl folder = createExportFolder(parentDirectory, names.materialName);

    // Every input is read before the first output is written, so that a set can be exported onto itself.
    const auto slots = allCases<TextureSlotKind>();
    const MaterialInputs inputs(textures, {slots.begin(), slots.end()}, size);

    ExportResult result{folder, {}};
    const bool hasNormal = textures.contains(TextureSlotKind::normal);
    writeImages(inputs, settings, names, result);
    if (settings.exportGLTF) {
        writeText(makeGLTFData(names, settings, hasNormal), names.gltf(), result);
    }
    if (settings.exportNotes) {
        writeText(makeNotes(names, settings, textures, hasNormal).toUtf8(), names.notes(), result);
    }
    return result;
}

}  // namespace quarlin
