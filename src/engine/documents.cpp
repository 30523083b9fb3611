#include "gltf_material.h"
#include "texture_processor.h"

#include "formatters.h"

namespace quarlin {

namespace {

QString yesOrNo(bool value) { return value ? QStringLiteral("yes") : QStringLiteral("no"); }

/// "LABEL: NAME", or "LABEL: not exported".
QString fileLine(const QString& label, const QString& name, bool exported) {
    return label + QStringLiteral(": ") + (exported ? name : QStringLiteral("not exported"));
}

QString sourceLine(TextureSlotKind slot, const TextureMap& textures) {
    const auto texture = textures.find(slot);
    if (texture == textures.end()) {
        return title(slot) + QStringLiteral(": not used");
    }
    return title(slot) + QStringLiteral(": ") + texture->second.fileName + QStringLiteral(" (") +
           texture->second.sizeLabel() + u')';
}

}  // namespace

QByteArray TextureProcessor::makeGLTFData(const OutputNames& names, const ConversionSettings& settings,
                                          bool hasNormal) {
    return gltfMaterial({.materialName = settings.safeMaterialName(),
                         .baseColor = names.baseColor(),
                         .orm = names.orm(),
                         .normal = hasNormal ? std::optional(names.normal()) : std::nullopt});
}

QByteArray TextureProcessor::makeGeneratedGLTFData(const NormalOutputNames& names,
                                                   const NormalGeneratorSettings& settings) {
    return gltfMaterial({.materialName = settings.safeMaterialName(),
                         .baseColor = names.baseColor(),
                         .orm = names.orm(),
                         .normal = names.normal()});
}

QString TextureProcessor::makeNotes(const OutputNames& names, const ConversionSettings& settings,
                                    const TextureMap& textures, bool hasNormal) {
    QStringList sources;
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        sources += sourceLine(slot, textures);
    }
    return QStringLiteral("VOREK TECH Quarlin - Second Life PBR Material Set\n\nMaterial name:\n") +
           settings.safeMaterialName() + QStringLiteral("\n\nOutput files:\nBase Color: ") +
           names.baseColor() + QStringLiteral("\nMetallic/Roughness: ") + names.orm() + u'\n' +
           fileLine(QStringLiteral("Normal"), names.normal(), hasNormal) + u'\n' +
           fileLine(QStringLiteral("glTF material"), names.gltf(), settings.exportGLTF) +
           QStringLiteral(
               "\n\n"
               "Second Life / glTF channel packing:\n"
               "ORM red: Ambient Occlusion. White means no occlusion.\n"
               "ORM green: Roughness. Black is glossy, white is rough.\n"
               "ORM blue: Metallic. Black is non-metal, white is metal.\n\n"
               "Settings:\n"
               "Output size: ") +
           title(settings.outputResolution) +
           QStringLiteral("\nRoughness input treated as gloss/smoothness: ") +
           yesOrNo(settings.roughnessInputIsGloss) + QStringLiteral("\nNormal green channel flipped: ") +
           yesOrNo(settings.flipNormalGreen) + QStringLiteral("\nDefault AO: ") +
           Formatters::percentLabel(settings.defaultOcclusion) + QStringLiteral("\nDefault roughness: ") +
           Formatters::percentLabel(settings.defaultRoughness) + QStringLiteral("\nDefault metallic: ") +
           Formatters::percentLabel(settings.defaultMetallic) + QStringLiteral("\n\nSource files:\n") +
           sources.join(u'\n') +
           QStringLiteral(
               "\n\n"
               "Suggested SL workflow:\n"
               "Upload the .gltf through Build > Upload > Material, or upload the PNGs as textures and "
               "create a new PBR Metallic-Roughness material manually.\n"
               "In the manual material window, assign Base Color to the Base Color slot, assign ORM to "
               "Metallic/Roughness, and assign Normal if available.\n\n"
               "Practical notes:\n"
               "Old diffuse textures often include baked shadows or highlights. They can work as a starting "
               "point, but a cleaner base color gives more believable PBR.\n"
               "Most Second Life objects are non-metallic unless the surface is real bare metal.");
}

QString TextureProcessor::makeNormalNotes(const NormalOutputNames& names,
                                          const NormalGeneratorSettings& settings,
                                          const TextureAsset& source) {
    return QStringLiteral("VOREK TECH Quarlin - Generated PBR Map Set\n\nMaterial name:\n") +
           settings.safeMaterialName() + QStringLiteral("\n\nOutput files:\nBase Color: ") +
           names.baseColor() + QStringLiteral("\nNormal map: ") + names.normal() + u'\n' +
           fileLine(QStringLiteral("Height helper"), names.height(), settings.exportHeight) + u'\n' +
           fileLine(QStringLiteral("Roughness"), names.roughness(), settings.exportRoughness) + u'\n' +
           fileLine(QStringLiteral("Gloss"), names.gloss(), settings.exportGloss) + u'\n' +
           fileLine(QStringLiteral("Metallic"), names.metallic(), settings.exportMetallic) + u'\n' +
           fileLine(QStringLiteral("Ambient Occlusion"), names.occlusion(), settings.exportAO) + u'\n' +
           fileLine(QStringLiteral("ORM packed map"), names.orm(), settings.exportORM) + u'\n' +
           fileLine(QStringLiteral("glTF material"), names.gltf(), settings.exportGLTF) +
           QStringLiteral("\n\nSource file:\n") + source.fileName + QStringLiteral(" (") +
           source.sizeLabel() + QStringLiteral(")\n\nSettings:\nOutput size: ") +
           title(settings.outputResolution) + QStringLiteral("\nStrength: ") +
           Formatters::decimalLabel(settings.strength, 2) + QStringLiteral("\nSmoothing passes: ") +
           QString::number(settings.smoothing) + QStringLiteral("\nHeight inverted: ") +
           yesOrNo(settings.invertHeight) + QStringLiteral("\nGreen channel flipped: ") +
           yesOrNo(settings.flipGreen) + QStringLiteral("\nRoughness min: ") +
           Formatters::percentLabel(settings.roughnessMin) + QStringLiteral("\nRoughness max: ") +
           Formatters::percentLabel(settings.roughnessMax) + QStringLiteral("\nMetallic strength: ") +
           Formatters::percentLabel(settings.metallicStrength) + QStringLiteral("\nAO strength: ") +
           Formatters::percentLabel(settings.aoStrength) +
           QStringLiteral("\n\nSuggested Second Life workflow:\nUpload ") + names.gltf() +
           QStringLiteral(" through Build > Upload > Material when .gltf export is enabled.\nUse ") +
           names.normal() + QStringLiteral(" in the Normal slot.\nUse ") + names.orm() +
           QStringLiteral(
               " in the Metallic/Roughness slot if you exported ORM. It packs red = AO, green = roughness, "
               "blue = metallic.\n"
               "If you prefer manual slots, use roughness, metallic and AO separately where your workflow "
               "supports them.\n\n"
               "Practical notes:\n"
               "These maps are generated heuristically from one texture. They are useful for fast Second "
               "Life material setup, but they cannot know the true material physics.\n"
               "Metallic is intentionally conservative. Most surfaces should stay low metallic unless they "
               "are bare metal.\n"
               "Gloss is the inverse of roughness. For PBR/glTF/SL Metallic-Roughness, roughness is usually "
               "the map you want.\n"
               "A generated normal map estimates height from brightness, which is useful for fabric, stone, "
               "panels, seams and surface grain, but less reliable for painted shadows or highlights.\n"
               "If bumps look pushed inward, toggle Invert Height. If vertical lighting looks reversed, "
               "toggle Flip Green.");
}

}  // namespace quarlin
