#include "engine/documents/documents.h"
#include "engine/documents/gltf_material.h"
#include "engine/documents/notes_text.h"
#include "model/formatters.h"

namespace quarlin {

using namespace Qt::StringLiterals;

QByteArray makeGeneratedGLTFData(const NormalOutputNames& names, const NormalGeneratorSettings& settings) {
    return gltfMaterial({.materialName = settings.safeMaterialName(),
                         .baseColor = names.baseColor(),
                         .orm = names.orm(),
                         .normal = names.normal()});
}

QString makeNormalNotes(const NormalOutputNames& names, const NormalGeneratorSettings& settings,
                        const TextureAsset& source) {
    return u"VOREK TECH Quarlin - Generated PBR Map Set\n\nMaterial name:\n"_s + settings.safeMaterialName() +
           u"\n\nOutput files:\n"_s +
           fileLines<GeneratedFile>(names, [&](GeneratedFile file) { return isWritten(file, settings); }) +
           u"\n\nSource file:\n"_s + source.fileName + u" ("_s + source.sizeLabel() +
           u")\n\nSettings:\nOutput size: "_s + title(settings.outputResolution) + u"\nStrength: "_s +
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
