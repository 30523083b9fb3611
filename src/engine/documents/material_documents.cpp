#include "engine/documents/documents.h"
#include "engine/documents/gltf_material.h"
#include "engine/documents/notes_text.h"
#include "model/formatters.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

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

QString makeNotes(const OutputNames& names, const ConversionSettings& settings, const TextureMap& textures,
                  bool hasNormal) {
    QStringList sources;
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        sources += sourceLine(slot, textures);
    }
    return u"VOREK TECH Quarlin - Second Life PBR Material Set\n\nMaterial name:\n"_s +
           settings.safeMaterialName() + u"\n\nOutput files:\n"_s +
           fileLines<MaterialFile>(names,
                                   [&](MaterialFile file) { return isWritten(file, settings, hasNormal); }) +
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

}  // namespace quarlin
