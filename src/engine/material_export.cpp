#include "export_folder.h"
#include "file_names.h"
#include "material_inputs.h"
#include "texture_processor.h"

namespace quarlin {

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
    const auto writeImage = [&](const RowSource& rows, const QString& name) {
        writePngFile(encodePng(size.width, size.height, rows), fileIn(folder, name));
        result.files += name;
    };
    const auto writeText = [&](const QByteArray& text, const QString& name) {
        writeTextFile(text, fileIn(folder, name));
        result.files += name;
    };

    writeImage(rowsOf(ImageView(*inputs.texture(TextureSlotKind::baseColor))), names.baseColor());
    writeImage(ormRows(inputs, settings), names.orm());
    const QImage* normal = inputs.texture(TextureSlotKind::normal);
    if (normal != nullptr) {
        writeImage(conditionedNormalRows(*normal, settings), names.normal());
    }
    const bool hasNormal = normal != nullptr;
    if (settings.exportGLTF) {
        writeText(makeGLTFData(names, settings, hasNormal), names.gltf());
    }
    if (settings.exportNotes) {
        writeText(makeNotes(names, settings, textures, hasNormal).toUtf8(), names.notes());
    }
    return result;
}

}  // namespace quarlin
