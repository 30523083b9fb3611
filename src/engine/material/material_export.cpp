#include "engine/base/export_folder.h"
#include "engine/base/imaging_errors.h"
#include "engine/base/output_size.h"
#include "engine/base/texture_processor_error.h"
#include "engine/documents/documents.h"
#include "engine/material/material.h"
#include "engine/material/material_inputs.h"
#include "imaging/base/pixel_size.h"
#include "imaging/png/png_file.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/output_names.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <exception>
#include <vector>

namespace quarlin {

namespace {

/// Writes the images of the set. An input that can't be read stops it at the image that needs the input:
/// the images before that one are written.
void writeImages(const MaterialInputs& inputs, const ConversionSettings& settings, const OutputNames& names,
                 bool hasNormal, ExportResult& result) {
    PngFileSet files(result.folderURL, inputs.size().width, inputs.size().height);
    std::vector<RowSource> images;
    std::exception_ptr failure;
    try {
        for (const MaterialFile file : allCases<MaterialFile>()) {
            if (const auto image = tableRow(file).image; image && isWritten(file, settings, hasNormal)) {
                images.push_back(imageRows(*image, inputs, settings));
                files.add(names[file]);
            }
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

ExportResult exportMaterialSet(const TextureMap& textures, const ConversionSettings& settings,
                               const QUrl& parentDirectory) {
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
    writeImages(inputs, settings, names, hasNormal, result);
    if (settings.exportGLTF) {
        writeText(makeGLTFData(names, settings, hasNormal), names.gltf(), result);
    }
    if (settings.exportNotes) {
        writeText(makeNotes(names, settings, textures, hasNormal).toUtf8(), names.notes(), result);
    }
    return result;
}

}  // namespace quarlin
