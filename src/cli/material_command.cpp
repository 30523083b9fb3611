#include "material_command.h"

#include "command_failure.h"
#include "file_names.h"
#include "local_file.h"
#include "texture_loading.h"

namespace quarlin {

QString MaterialCommand::summary() const {
    return QStringLiteral("Packs texture files into a material set for Second Life and glTF.");
}

CommandOptions MaterialCommand::ownOptions() {
    const auto file = [this](const QString& option, TextureSlotKind slot, const QString& description) {
        return pathOption(option, QStringLiteral("FILE"), description, m_paths[slot]);
    };
    return {
        required(file(QStringLiteral("base-color"), TextureSlotKind::baseColor,
                      QStringLiteral("the colour of the surface"))),
        file(QStringLiteral("normal"), TextureSlotKind::normal, QStringLiteral("a tangent-space normal map")),
        file(QStringLiteral("occlusion"), TextureSlotKind::occlusion, QStringLiteral("ambient occlusion")),
        file(QStringLiteral("roughness"), TextureSlotKind::roughness,
             QStringLiteral("roughness, or gloss with --gloss")),
        file(QStringLiteral("metallic"), TextureSlotKind::metallic, QStringLiteral("metallic")),
        nameOption(m_name),
        sizeOption(m_settings.outputResolution),
        switchOption(QStringLiteral("gloss"), QStringLiteral("the roughness file holds gloss: invert it"),
                     m_settings.roughnessInputIsGloss, true),
        switchOption(QStringLiteral("flip-normal-green"),
                     QStringLiteral("the normal map is of the DirectX kind: invert its green"),
                     m_settings.flipNormalGreen, true),
        numberOption(QStringLiteral("default-occlusion"), QStringLiteral("occlusion without a file"),
                     m_settings.defaultOcclusion, fractionRange),
        numberOption(QStringLiteral("default-roughness"), QStringLiteral("roughness without a file"),
                     m_settings.defaultRoughness, fractionRange),
        numberOption(QStringLiteral("default-metallic"), QStringLiteral("metallic without a file"),
                     m_settings.defaultMetallic, fractionRange),
        switchOption(QStringLiteral("no-gltf"), QStringLiteral("write no .gltf material"),
                     m_settings.exportGLTF, false),
        switchOption(QStringLiteral("no-notes"), QStringLiteral("write no notes"), m_settings.exportNotes,
                     false),
    };
}

ExportResult MaterialCommand::run() const {
    const TextureProcessor processor;
    const TextureMap textures = loadTextures(processor, m_paths);
    ConversionSettings settings = m_settings;
    settings.materialName = m_name.value_or(fileStem(localFile(m_paths.at(TextureSlotKind::baseColor))));
    return failingAs(QStringLiteral("Export"),
                     [&] { return processor.exportMaterialSet(textures, settings, parentDirectory()); });
}

}  // namespace quarlin
