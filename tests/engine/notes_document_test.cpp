#include "golden_text.h"
#include "texture_processor.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

TextureAsset asset(const QString& fileName, std::int64_t width, std::int64_t height) {
    return {QUrl::fromLocalFile(QStringLiteral("/elsewhere/") + fileName), fileName, width, height, QImage()};
}

class NotesDocument : public InEnglish {};

TEST_F(NotesDocument, OfAFullSetIsThisToTheByte) {
    ConversionSettings settings;
    settings.materialName = QStringLiteral("My Brick");
    settings.outputResolution = OutputResolution::px1024;
    settings.flipNormalGreen = true;
    settings.roughnessInputIsGloss = true;
    settings.defaultOcclusion = 0.9;
    settings.defaultRoughness = 0.5;
    settings.defaultMetallic = 0.25;
    const TextureMap textures{
        {TextureSlotKind::baseColor, asset(QStringLiteral("brick_diffuse.jpg"), 2048, 2048)},
        {TextureSlotKind::normal, asset(QStringLiteral("brick nrm.png"), 1024, 512)},
        {TextureSlotKind::occlusion, asset(QStringLiteral("ao.tif"), 1, 1)},
        {TextureSlotKind::roughness, asset(QStringLiteral("gloss.bmp"), 640, 480)},
        {TextureSlotKind::metallic, asset(QStringLiteral("M\u00e9tal.heic"), 4096, 4096)},
    };
    EXPECT_TRUE(sameText(
        QStringLiteral(
            "VOREK TECH Quarlin - Second Life PBR Material Set\n"
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
            "Most Second Life objects are non-metallic unless the surface is real bare metal."),
        TextureProcessor::makeNotes(OutputNames{settings.safeMaterialName()}, settings, textures, true)));
}

TEST_F(NotesDocument, OfALoneBaseColorIsThisToTheByte) {
    ConversionSettings settings;
    settings.exportGLTF = false;
    const TextureMap textures{{TextureSlotKind::baseColor, asset(QStringLiteral("a.png"), 300, 200)}};
    EXPECT_TRUE(sameText(
        QStringLiteral(
            "VOREK TECH Quarlin - Second Life PBR Material Set\n"
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
            "Most Second Life objects are non-metallic unless the surface is real bare metal."),
        TextureProcessor::makeNotes(OutputNames{settings.safeMaterialName()}, settings, textures, false)));
}

QString notesWith(const ConversionSettings& settings, const TextureMap& textures, bool hasNormal) {
    return TextureProcessor::makeNotes(OutputNames{settings.safeMaterialName()}, settings, textures,
                                       hasNormal);
}

TEST_F(NotesDocument, TheNormalLineFollowsTheExportAndNotTheSlot) {
    const TextureMap withNormal{{TextureSlotKind::normal, asset(QStringLiteral("n.png"), 2, 2)}};
    EXPECT_TRUE(notesWith({}, withNormal, false).contains(QStringLiteral("\nNormal: not exported\n")));
    EXPECT_TRUE(notesWith({}, withNormal, false).contains(QStringLiteral("\nNormal: n.png (2x2)\n")));
    EXPECT_TRUE(
        notesWith({}, {}, true).contains(QStringLiteral("\nNormal: VOREK_PBR_Material_Normal.png\n")));
}

TEST_F(NotesDocument, TheGltfLineFollowsTheSetting) {
    ConversionSettings settings;
    EXPECT_TRUE(notesWith(settings, {}, false)
                    .contains(QStringLiteral("\nglTF material: VOREK_PBR_Material.gltf\n")));
    settings.exportGLTF = false;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(QStringLiteral("\nglTF material: not exported\n")));
    EXPECT_TRUE(notesWith(settings, {}, false).contains(QStringLiteral("\nUpload the .gltf through")));
}

TEST_F(NotesDocument, NamesEveryOutputSizeByItsTitle) {
    ConversionSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(QStringLiteral("\nOutput size: Base Size\n")));
    settings.outputResolution = OutputResolution::px512;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(QStringLiteral("\nOutput size: 512\n")));
    settings.outputResolution = OutputResolution::px4096;
    EXPECT_TRUE(notesWith(settings, {}, false).contains(QStringLiteral("\nOutput size: 4096\n")));
}

TEST_F(NotesDocument, WithoutAnyTextureListsFiveUnusedSlots) {
    EXPECT_EQ(notesWith({}, {}, false).count(QStringLiteral(": not used\n")), 5);
}

TEST_F(NotesDocument, FollowsTheLocalesPercentSign) {
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    EXPECT_TRUE(notesWith({}, {}, false).contains(QStringLiteral("\nDefault roughness: 65\u00a0%\n")));
}

TEST_F(NotesDocument, EndsWithoutALineFeed) {
    EXPECT_TRUE(notesWith({}, {}, false).endsWith(QStringLiteral("bare metal.")));
}

}  // namespace
