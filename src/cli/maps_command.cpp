#include "maps_command.h"

#include "command_failure.h"
#include "file_names.h"
#include "local_file.h"
#include "texture_loading.h"

namespace quarlin {

QString MapsCommand::summary() const {
    return QStringLiteral(
        "Generates normal, height, roughness, gloss, metallic and occlusion maps from one texture.");
}

CommandOptions MapsCommand::ownOptions() {
    const auto without = [](const QString& file, const QString& description, bool& target) {
        return switchOption(QStringLiteral("no-") + file, QStringLiteral("write no ") + description, target,
                            false);
    };
    return {
        required(pathOption(QStringLiteral("source"), QStringLiteral("FILE"),
                            QStringLiteral("the texture that the maps are estimated from"), m_source)),
        nameOption(m_name),
        sizeOption(m_settings.outputResolution),
        numberOption(QStringLiteral("strength"), QStringLiteral("steepness of the normal map"),
                     m_settings.strength, strengthRange),
        countOption(QStringLiteral("smoothing"), QStringLiteral("blur passes over the height field"),
                    m_settings.smoothing, smoothingRange),
        switchOption(QStringLiteral("invert-height"), QStringLiteral("dark is high"), m_settings.invertHeight,
                     true),
        switchOption(QStringLiteral("flip-green"), QStringLiteral("make a normal map of the DirectX kind"),
                     m_settings.flipGreen, true),
        numberOption(QStringLiteral("roughness-min"), QStringLiteral("one end of the roughness"),
                     m_settings.roughnessMin, fractionRange),
        numberOption(QStringLiteral("roughness-max"), QStringLiteral("the other end of the roughness"),
                     m_settings.roughnessMax, fractionRange),
        numberOption(QStringLiteral("metallic-strength"), QStringLiteral("how much is taken for metal"),
                     m_settings.metallicStrength, fractionRange),
        numberOption(QStringLiteral("ao-strength"), QStringLiteral("depth of the ambient occlusion"),
                     m_settings.aoStrength, fractionRange),
        without(QStringLiteral("height"), QStringLiteral("height map"), m_settings.exportHeight),
        without(QStringLiteral("roughness"), QStringLiteral("roughness map"), m_settings.exportRoughness),
        without(QStringLiteral("gloss"), QStringLiteral("gloss map"), m_settings.exportGloss),
        without(QStringLiteral("metallic"), QStringLiteral("metallic map"), m_settings.exportMetallic),
        without(QStringLiteral("ao"), QStringLiteral("ambient occlusion map"), m_settings.exportAO),
        without(QStringLiteral("orm"), QStringLiteral("packed ORM map"), m_settings.exportORM),
        without(QStringLiteral("gltf"), QStringLiteral(".gltf material"), m_settings.exportGLTF),
        without(QStringLiteral("notes"), QStringLiteral("notes"), m_settings.exportNotes),
    };
}

ExportResult MapsCommand::run() const {
    const TextureProcessor processor;
    const TextureAsset source = loadTexture(processor, m_source);
    NormalGeneratorSettings settings = m_settings;
    settings.materialName = m_name.value_or(fileStem(source.url));
    return failingAs(QStringLiteral("Export"),
                     [&] { return processor.exportGeneratedNormalSet(source, settings, parentDirectory()); });
}

}  // namespace quarlin
