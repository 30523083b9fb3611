#include "engine/documents/documents.h"

#include "engine/documents/gltf_material.h"
#include "model/formatters.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QString yesOrNo(bool value) { return value ? u"yes"_s : u"no"_s; }

/// "LABEL: NAME", or "LABEL: not exported".
QString fileLine(const QString& label, const QString& name, bool exported) {
    return label + u": "_s + (exported ? name : u"not exported"_s);
}

QString sourceLine(TextureSlotKind slot, const TextureMap& textures) {
    const auto texture = textures.find(slot);
    if (texture == textures.end()) {
        return title(slot) + u": not used"_s;
    }
    return title(slot) + u": "_s + texture->second.fileName + u" ("_s + texture->second.sizeLabel() + u')';
}

}  // namespace

QByteArray makeGLTFData(const OutputNames& names, const ConversionSettings& settings, bool hasNormal) {
    return gltfMaterial({.materialName = settings.safeMaterialName(),
                         .baseColor = names.baseColor(),
                         .orm = names.orm(),
                         .normal = hasNormal ? std::optional(names.normal()) : std::nullopt});
}

QByteArray makeGeneratedGLTFData(const NormalOutputNames& names, const NormalGeneratorSettings& settings) {
    return gltfMaterial({.materialName = settings.safeMaterialName(),
                         .baseColor = names.baseColor(),
                         .orm = names.orm(),
                         .normal = names.normal()});
}

QString makeNotes(const OutputNames& names, const ConversionSettings& settings, const TextureMap& textures,
                  bool hasNormal) {
    QStringList sources;
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        sources += sourceLine(slot, textures);
    }
    return u"VOREK TECH Quarlin - Second Life PBR Material Set\n\nMaterial name:\n"_s +
           settings.safeMaterialName() + u"\n\nOutput files:\nBase Color: "_s + names.baseColor() +
           u"\nMetallic/Roughness: "_s + names.orm() + u'\n' +
           fileLine(u"Normal"_s, names.normal(), hasNormal) + u'\n' +
           fileLine(u"glTF material"_s, names.gltf(), settings.exportGLTF) +
           u"\n\n"
           "Second Life / glTF channel packing:\n"
           "ORM red: Ambient Occlusion. White means no occlusion.\n"
           "ORM green: Roughness. Black is glossy, white is rough.\n"
           "ORM blue: Metallic. Black is non-metal, white is metal.\n\n"
           "Settings:\n"
           "Output size: "_s +
           title(settings.outputResolution) + u"\nRoughness input treated as gloss/smoothness: "_s +
           yesOrNo(settings.roughnessInputIsGloss) + u"\nNormal green channel flipped: "_s +
           yesOrNo(settings.flipNormalGreen) + u"\nDefault AO: "_s +
           Formatters::percentLabel(settings.defaultOcclusion) + u"\nDefault roughness: "_s +
           Formatters::percentLabel(settings.defaultRoughness) + u"\nDefault metallic: "_s +
           Formatters::percentLabel(settings.defaultMetallic) + u"\n\nSource files:\n"_s +
           sources.join(u'\n') +
           u"\n\n"
           "Suggested SL workflow:\n"
           "Upload the .gltf through Build > Upload > Material, or upload the PNGs as textures and "
           "create a new PBR Metallic-Roughness material manually.\n"
           "In the manual material window, assign Base Color to the Base Color slot, assign ORM to "
           "Metallic/Roughness, and assign Normal if available.\n\n"
           "Practical notes:\n"
           "Old diffuse textures often include baked shadows or highlights. They can work as a starting "
           "point, but a cleaner base color gives more believable PBR.\n"
           "Most Second Life objects are non-metallic unless the surface is real bare metal."_s;
}

QString makeNormalNotes(const NormalOutputNames& names, const NormalGeneratorSettings& settings,
                        const TextureAsset& source) {
    return u"VOREK TECH Quarlin - Generated PBR Map Set\n\nMaterial name:\n"_s + settings.safeMaterialName() +
           u"\n\nOutput files:\nBase Color: "_s + names.baseColor() + u"\nNormal map: "_s + names.normal() +
           u'\n' + fileLine(u"Height helper"_s, names.height(), settings.exportHeight) + u'\n' +
           fileLine(u"Roughness"_s, names.roughness(), settings.exportRoughness) + u'\n' +
           fileLine(u"Gloss"_s, names.gloss(), settings.exportGloss) + u'\n' +
           fileLine(u"Metallic"_s, names.metallic(), settings.exportMetallic) + u'\n' +
           fileLine(u"Ambient Occlusion"_s, names.occlusion(), settings.exportAO) + u'\n' +
           fileLine(u"ORM packed map"_s, names.orm(), settings.exportORM) + u'\n' +
           fileLine(u"glTF material"_s, names.gltf(), settings.exportGLTF) + u"\n\nSource file:\n"_s +
           source.fileName + u" ("_s + source.sizeLabel() + u")\n\nSettings:\nOutput size: "_s +
           title(settings.outputResolution) + u"\nStrength: "_s +
           Formatters::decimalLabel(settings.strength, 2) + u"\nSmoothing passes: "_s +
           QString::number(settings.smoothing) + u"\nHeight inverted: "_s + yesOrNo(settings.invertHeight) +
           u"\nGreen channel flipped: "_s + yesOrNo(settings.flipGreen) + u"\nRoughness min: "_s +
           Formatters::percentLabel(settings.roughnessMin) + u"\nRoughness max: "_s +
           Formatters::percentLabel(settings.roughnessMax) + u"\nMetallic strength: "_s +
           Formatters::percentLabel(settings.metallicStrength) + u"\nAO strength: "_s +
           Formatters::percentLabel(settings.aoStrength) + u"\n\nSuggested Second Life workflow:\nUpload "_s +
           names.gltf() + u" through Build > Upload > Material when .gltf export is enabled.\nUse "_s +
           names.normal() + u" in the Normal slot.\nUse "_s + names.orm() +
           u" in the Metallic/Roughness slot if you exported ORM. It packs red = AO, green = roughness, "
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
           "toggle Flip Green."_s;
}

}  // namespace quarlin
