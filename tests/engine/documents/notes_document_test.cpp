#include "engine/texture_processor.h"
#include "golden_text.h"
#include "model/conversion_settings.h"
#include "model/output_names.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

TextureAsset asset(const QString& fileName, std::int64_t width, std::int64_t height) {
    return {QUrl::fromLocalFile(u"/elsewhere/"_s + fileName), fileName, width, height, QImage()};
}

class NotesDocument : public InEnglish {};

TEST_F(NotesDocument, OfAFullSetIsThisToTheByte) {
    ConversionSettings settings;
    settings.materialName = u"My Brick"_s;
    settings.outputResolution = OutputResolution::px1024;
    settings.flipNormalGreen = true;
    settings.roughnessInputIsGloss = true;
    settings.defaultOcclusion = 0.9;
    settings.defaultRoughness = 0.5;
    settings.defaultMetallic = 0.25;
    const TextureMap textures{
        {TextureSlotKind::baseColor, asset(u"brick_diffuse.jpg"_s, 2048, 2048)},
        {TextureSlotKind::normal, asset(u"brick nrm.png"_s, 1024, 512)},
        {TextureSlotKind::occlusion, asset(u"ao.tif"_s, 1, 1)},
        {TextureSlotKind::roughness, asset(u"gloss.bmp"_s, 640, 480)},
        {TextureSlotKind::metallic, asset(u"M\u00e9tal.heic"_s, 4096, 4096)},
    };
    EXPECT_TRUE(sameText(
        u"VOREK TECH Quarlin - Second Life PBR Material Set\n"
        "\n"
        "Material name:\n"
        "My_Brick\n"
        "\n"
        "Output files:\n"
        "Base Color: My_Brick_BaseColor.png\n"
        "Metallic/Roughness: My_Brick_ORM.png\n"
        "Normal: My_Brick_Normal.png\n"
        "glTF material: My_Brick.gltf\n"
        "\n"
        "Second Life / glTF channel packing:\n"
        "ORM red: Ambient Occlusion. White means no occlusion.\n"
        "ORM green: Roughness. Black is glossy, white is rough.\n"
        "ORM blue: Metallic. Black is non-metal, white is metal.\n"
        "\n"
        "Settings:\n"
        "Output size: 1024\n"
        "Roughness input treated as gloss/smoothness: yes\n"
        "Normal green channel flipped: yes\n"
        "Default AO: 90%\n"
        "Default roughness: 50%\n"
        "Default metallic: 25%\n"
        "\n"
        "Source files:\n"
        "Base Color: brick_diffuse.jpg (2048x2048)\n"
        "Normal: brick nrm.png (1024x512)\n"
        "Occlusion: ao.tif (1x1)\n"
        "Roughness / Gloss: gloss.bmp (640x480)\n"
        "Metallic: M\u00e9tal.heic (4096x4096)\n"
        "\n"
        "Suggested SL workflow:\n"
        "Upload the .gltf through Build > Upload > Material, or upload the PNGs as textures and create a "
        "new PBR "
        "Metallic-Roughness material manually.\n"
        "In the manual material window, assign Base Color to the Base Color slot, assign ORM to "
        "Metallic/Roughness, and assign Normal if available.\n"
        "\n"
        "Practical notes:\n"
        "Old diffuse textures often include baked shadows or highlights. They can work as a starting "
        "point, but a "
        "cleaner base color gives more believable PBR.\n"
        "Most Second Life objects are non-metallic unless the surface is real bare metal."_s,
        TextureProcessor::makeNotes(OutputNames{settings.safeMaterialName()}, settings, textures, true)));
}

TEST_F(NotesDocument, OfALoneBaseColorIsThisToTheByte) {
    ConversionSettings settings;
    settings.exportGLTF = false;
    const TextureMap textures{{TextureSlotKind::baseColor, asset(u"a.png"_s, 300, 200)}};
    EXPECT_TRUE(sameText(
        u"VOREK TECH Quarlin - Second Life PBR Material Set\n"
        "\n"
        "Material name:\n"
        "VOREK_PBR_Material\n"
        "\n"
        "Output files:\n"
        "Base Color: VOREK_PBR_Material_BaseColor.png\n"
        "Metallic/Roughness: VOREK_PBR_Material_ORM.png\n"
        "Normal: not exported\n"
        "glTF material: not exported\n"
        "\n"
        "Second Life / glTF channel packing:\n"
        "ORM red: Ambient Occlusion. White means no occlusion.\n"
        "ORM green: Roughness. Black is glossy, white is rough.\n"
        "ORM blue: Metallic. Black is non-metal, white is metal.\n"
        "\n"
        "Settings:\n"
        "Output size: 2048\n"
        "Roughness input treated as gloss/smoothness: no\n"
        "Normal green channel flipped: no\n"
        "Default AO: 100%\n"
        "Default roughness: 65%\n"
        "Default metallic: 0%\n"
        "\n"
        "Source files:\n"
        "Base Color: a.png (300x200)\n"
        "Normal: not used\n"
        "Occlusion: not used\n"
        "Roughness / Gloss: not used\n"
        "Metallic: not used\n"
        "\n"
        "Suggested SL workflow:\n"
        "Upload the .gltf through Build > Upload > Material, or upload the PNGs as textures and create a "
        "new PBR "
        "Metallic-Roughness material manually.\n"
        "In the manual material window, assign Base Color to the Base Color slot, assign ORM to "
        "Metallic/Roughness, and assign Normal if available.\n"
        "\n"
        "Practical notes:\n"
        "Old diffuse textures often include baked shadows or highlights. They can work as a starting "
        "point, but a "
        "cleaner base color gives more believable PBR.\n"
        "Most Second Life objects are non-metallic unless the surface is real bare metal."_s,
        TextureProcessor::makeNotes(OutputNames{settings.safeMaterialName()}, settings, textures, false)));
}

QString notesWith(const ConversionSettings& settings, const TextureMap& textures, bool hasNormal) {
    return TextureProcessor::makeNotes(OutputNames{settings.safeMaterialName()}, settings, textures,
                                       hasNormal);
}

TEST_F(NotesDocument, TheNormalLineFollowsTheExportAndNotTheSlot) {
    const TextureMap withNormal{{TextureSlotKind::normal, asset(u"n.png"_s, 2, 2)}};
    EXPECT_TRUE(notesWith({}, withNormal, false).contains(u"\nNormal: not exported\n"_s));
    EXPECT_TRUE(notesWith({}, withNormal, false).contains(u"\nNormal: n.png (2x2)\n"_s));
    EXPECT_TRUE(notesWith({}, {}, true).contains(u"\nNormal: VOREK_PBR_Material_Normal.png\n"_s));
}

TEST_F(NotesDocument, TheGltfLineFollowsTheSetting) {
    ConversionSettings settings;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(u"\nglTF material: VOREK_PBR_Material.gltf\n"_s));
    settings.exportGLTF = false;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(u"\nglTF material: not exported\n"_s));
    EXPECT_TRUE(notesWith(settings, {}, false).contains(u"\nUpload the .gltf through"_s));
}

TEST_F(NotesDocument, NamesEveryOutputSizeByItsTitle) {
    ConversionSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(u"\nOutput size: Base Size\n"_s));
    settings.outputResolution = OutputResolution::px512;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(u"\nOutput size: 512\n"_s));
    settings.outputResolution = OutputResolution::px4096;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(u"\nOutput size: 4096\n"_s));
}

TEST_F(NotesDocument, WithoutAnyTextureListsFiveUnusedSlots) {
    EXPECT_EQ(notesWith({}, {}, false).count(u": not used\n"_s), 5);
}

TEST_F(NotesDocument, FollowsTheLocalesPercentSign) {
    QLocale::setDefault(QLocale(u"de_DE"_s));
    EXPECT_TRUE(notesWith({}, {}, false).contains(u"\nDefault roughness: 65\u00a0%\n"_s));
}

TEST_F(NotesDocument, EndsWithoutALineFeed) {
    EXPECT_TRUE(notesWith({}, {}, false).endsWith(u"bare metal."_s));
}

}  // namespace
