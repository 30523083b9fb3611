#include "engine/texture_processor.h"
#include "golden_text.h"
#include "model/normal_generator_settings.h"
#include "model/normal_output_names.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"
#include "set_files.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

QString notesOf(const NormalGeneratorSettings& settings) {
    const TextureAsset source{QUrl::fromLocalFile(u"/elsewhere/brick photo.jpg"_s), u"brick photo.jpg"_s,
                              1600, 1200, QImage()};
    return TextureProcessor::makeNormalNotes(NormalOutputNames{settings.safeMaterialName()}, settings,
                                             source);
}

/// The lines about the files of a set with all files, or with as few as possible.
QString exportedLines(const std::vector<ExpectedGeneratedFile>& files, const QString& material) {
    QString lines;
    for (const auto& file : files) {
        if (const QString title = QString::fromLatin1(file.title); !title.isEmpty()) {
            lines += title + u": "_s + file.name(material) + u'\n';
        }
    }
    return lines;
}
QString notExportedLines(const std::vector<ExpectedGeneratedFile>& files, const QString& material) {
    QString lines = exportedLines(withoutSwitch(files), material);
    for (const auto& file : withSwitch(files)) {
        if (const QString title = QString::fromLatin1(file.title); !title.isEmpty()) {
            lines += title + u": not exported\n"_s;
        }
    }
    return lines;
}

class GeneratedNotesDocument : public InEnglish {};

TEST_F(GeneratedNotesDocument, OfAFullSetIsThisToTheByte) {
    NormalGeneratorSettings settings;
    settings.materialName = u"My Brick"_s;
    EXPECT_TRUE(
        sameText(u"VOREK TECH Quarlin - Generated PBR Map Set\n"
                 "\n"
                 "Material name:\n"
                 "My_Brick\n"
                 "\n"
                 "Output files:\n"_s +
                     exportedLines(generatedFiles(), u"My_Brick"_s) +
                     u"\n"
                     "Source file:\n"
                     "brick photo.jpg (1600x1200)\n"
                     "\n"
                     "Settings:\n"
                     "Output size: 2048\n"
                     "Strength: 3.00\n"
                     "Smoothing passes: 1\n"
                     "Height inverted: no\n"
                     "Green channel flipped: no\n"
                     "Roughness min: 18%\n"
                     "Roughness max: 82%\n"
                     "Metallic strength: 45%\n"
                     "AO strength: 55%\n"
                     "\n"
                     "Suggested Second Life workflow:\n"
                     "Upload My_Brick.gltf through Build > Upload > Material when .gltf export is enabled.\n"
                     "Use My_Brick_normal.png in the Normal slot.\n"
                     "Use My_Brick_orm.png in the Metallic/Roughness slot if you exported ORM. It packs red "
                     "= AO, green = "
                     "roughness, blue = metallic.\n"
                     "If you prefer manual slots, use roughness, metallic and AO separately where your "
                     "workflow supports "
                     "them.\n"
                     "\n"
                     "Practical notes:\n"
                     "These maps are generated heuristically from one texture. They are useful for fast "
                     "Second Life material "
                     "setup, but they cannot know the true material physics.\n"
                     "Metallic is intentionally conservative. Most surfaces should stay low metallic unless "
                     "they are bare "
                     "metal.\n"
                     "Gloss is the inverse of roughness. For PBR/glTF/SL Metallic-Roughness, roughness is "
                     "usually the map you "
                     "want.\n"
                     "A generated normal map estimates height from brightness, which is useful for fabric, "
                     "stone, panels, "
                     "seams and surface grain, but less reliable for painted shadows or highlights.\n"
                     "If bumps look pushed inward, toggle Invert Height. If vertical lighting looks "
                     "reversed, toggle Flip "
                     "Green."_s,
                 notesOf(settings)));
}

TEST_F(GeneratedNotesDocument, WithEverythingOffIsThisToTheByte) {
    NormalGeneratorSettings settings;
    settings.materialName = u"Brick"_s;
    settings.outputResolution = OutputResolution::matchBase;
    settings.strength = 12;
    settings.smoothing = 2;
    settings.invertHeight = true;
    settings.flipGreen = true;
    settings.roughnessMin = 0;
    settings.roughnessMax = 1;
    settings.metallicStrength = 0.3;
    settings.aoStrength = 0.07;
    switchAll(generatedFiles(), settings, false);
    EXPECT_TRUE(
        sameText(u"VOREK TECH Quarlin - Generated PBR Map Set\n"
                 "\n"
                 "Material name:\n"
                 "Brick\n"
                 "\n"
                 "Output files:\n"_s +
                     notExportedLines(generatedFiles(), u"Brick"_s) +
                     u"\n"
                     "Source file:\n"
                     "brick photo.jpg (1600x1200)\n"
                     "\n"
                     "Settings:\n"
                     "Output size: Base Size\n"
                     "Strength: 12.00\n"
                     "Smoothing passes: 2\n"
                     "Height inverted: yes\n"
                     "Green channel flipped: yes\n"
                     "Roughness min: 0%\n"
                     "Roughness max: 100%\n"
                     "Metallic strength: 30%\n"
                     "AO strength: 7%\n"
                     "\n"
                     "Suggested Second Life workflow:\n"
                     "Upload Brick.gltf through Build > Upload > Material when .gltf export is enabled.\n"
                     "Use Brick_normal.png in the Normal slot.\n"
                     "Use Brick_orm.png in the Metallic/Roughness slot if you exported ORM. It packs red = "
                     "AO, green = "
                     "roughness, blue = metallic.\n"
                     "If you prefer manual slots, use roughness, metallic and AO separately where your "
                     "workflow supports "
                     "them.\n"
                     "\n"
                     "Practical notes:\n"
                     "These maps are generated heuristically from one texture. They are useful for fast "
                     "Second Life material "
                     "setup, but they cannot know the true material physics.\n"
                     "Metallic is intentionally conservative. Most surfaces should stay low metallic "
                     "unless they are bare "
                     "metal.\n"
                     "Gloss is the inverse of roughness. For PBR/glTF/SL Metallic-Roughness, roughness is "
                     "usually the map you "
                     "want.\n"
                     "A generated normal map estimates height from brightness, which is useful for fabric, "
                     "stone, panels, "
                     "seams and surface grain, but less reliable for painted shadows or highlights.\n"
                     "If bumps look pushed inward, toggle Invert Height. If vertical lighting looks "
                     "reversed, toggle Flip "
                     "Green."_s,
                 notesOf(settings)));
}

TEST_F(GeneratedNotesDocument, EverySwitchHasItsOwnLine) {
    NormalGeneratorSettings all;
    all.materialName = u"Brick"_s;
    for (const auto& file : withSwitch(generatedFiles())) {
        NormalGeneratorSettings settings = all;
        settings.*file.isExported = false;
        QString expected = notesOf(all);
        if (const QString title = QString::fromLatin1(file.title); !title.isEmpty()) {
            const QString on = u'\n' + title + u": "_s + file.name(u"Brick"_s) + u'\n';
            ASSERT_EQ(expected.count(on), 1) << file.title;
            expected.replace(on, u'\n' + title + u": not exported\n"_s);
        }
        EXPECT_TRUE(sameText(expected, notesOf(settings)));
    }
}

TEST_F(GeneratedNotesDocument, StrengthHasTwoDecimals) {
    NormalGeneratorSettings settings;
    const auto strengthLine = [&](double strength) {
        settings.strength = strength;
        return notesOf(settings).split(u'\n').filter(u"Strength: "_s).value(0);
    };
    EXPECT_EQ(strengthLine(3), u"Strength: 3.00"_s);
    EXPECT_EQ(strengthLine(0.05), u"Strength: 0.05"_s);
    EXPECT_EQ(strengthLine(2.999), u"Strength: 3.00"_s);
    EXPECT_EQ(strengthLine(-1.5), u"Strength: -1.50"_s);
    // Neither decimal is an exact double: the doubles of 2.675 and 1.115 are both slightly smaller.
    EXPECT_EQ(strengthLine(2.675), u"Strength: 2.67"_s);
    EXPECT_EQ(strengthLine(1.115), u"Strength: 1.11"_s);
    // Exact ties round to the even digit.
    EXPECT_EQ(strengthLine(0.125), u"Strength: 0.12"_s);
    EXPECT_EQ(strengthLine(0.375), u"Strength: 0.38"_s);
    EXPECT_EQ(strengthLine(2.625), u"Strength: 2.62"_s);
    EXPECT_EQ(strengthLine(1234567.5), u"Strength: 1234567.50"_s);
}

TEST_F(GeneratedNotesDocument, NumbersIgnoreTheLocale) {
    QLocale::setDefault(QLocale(u"de_DE"_s));
    NormalGeneratorSettings settings;
    settings.strength = 1234.5;
    settings.smoothing = 1234;
    EXPECT_TRUE(notesOf(settings).contains(u"\nStrength: 1234.50\nSmoothing passes: 1234\n"_s));
    EXPECT_TRUE(notesOf(settings).contains(u"\nRoughness min: 18\u00a0%\n"_s));
}

TEST_F(GeneratedNotesDocument, SmoothingIsAWholeNumber) {
    NormalGeneratorSettings settings;
    settings.smoothing = -3;
    EXPECT_TRUE(notesOf(settings).contains(u"\nSmoothing passes: -3\n"_s));
}

TEST_F(GeneratedNotesDocument, EndsWithoutALineFeed) {
    EXPECT_TRUE(notesOf({}).endsWith(u"toggle Flip Green."_s));
}

}  // namespace
