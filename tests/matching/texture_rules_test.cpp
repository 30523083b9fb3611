#include "matching/texture_rules.h"

#include "matching/texture_name.h"
#include "qstring_printing.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

std::optional<NamedMap> mapOf(const QString& name, const MapWords& words) {
    return readTextureName(name, words).map;
}

QString reasonOf(const QString& rule) {
    MapWords words;
    try {
        addSuffixRule(rule, words);
    } catch (const TextureRuleError& error) {
        return error.reason();
    }
    return {};
}

TEST(SuffixRules, AddWordsThatCountAlone) {
    MapWords words;
    addSuffixRule(u"base-color=tint,Main-Tex"_s, words);
    addSuffixRule(u"normal-dx=bmp2"_s, words);
    EXPECT_EQ(mapOf(u"wall_TINT"_s, words)->kind, MapKind::baseColor);
    EXPECT_EQ(mapOf(u"wall_MainTex_2k"_s, words)->kind, MapKind::baseColor);
    EXPECT_EQ(mapOf(u"wall_main_tex"_s, words)->evidence, Evidence::clear);
    EXPECT_EQ(mapOf(u"wall_bmp2"_s, words)->green, GreenDirection::directX);
    EXPECT_FALSE(mapOf(u"wall_tint"_s, MapWords()));
}

TEST(SuffixRules, ComeBeforeTheCommonWords) {
    MapWords words;
    addSuffixRule(u"other=height"_s, words);
    addSuffixRule(u"roughness=m"_s, words);
    EXPECT_EQ(mapOf(u"wall_height"_s, words)->kind, MapKind::otherMap);
    EXPECT_EQ(mapOf(u"wall_m"_s, words)->kind, MapKind::roughness);
    EXPECT_EQ(mapOf(u"wall_m"_s, words)->evidence, Evidence::clear);
}

TEST(SuffixRules, AreRefusedIfTheyAreInvalid) {
    EXPECT_EQ(reasonOf(u"normal"_s), u"'normal' is not of the form KIND=WORD"_s);
    EXPECT_EQ(reasonOf(u"normal=a,,b"_s), u"'normal=a,,b' has an empty word"_s);
    EXPECT_TRUE(reasonOf(u"shine=a"_s).startsWith(u"'shine' is not one of base-color, normal, normal-gl"_s));
}

TEST(SuffixRules, AreReadFromAFile) {
    const QTemporaryDir folder;
    const auto write = [&](const QByteArray& text) {
        QFile file(folder.filePath(u"studio.txt"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return QUrl::fromLocalFile(file.fileName());
    };
    MapWords words;
    addRulesOfFile(write("# ours\n\n base-color = tint, paint \r\nrma=mix\n"), words);
    EXPECT_EQ(mapOf(u"wall_paint"_s, words)->kind, MapKind::baseColor);
    EXPECT_EQ(mapOf(u"wall_mix"_s, words)->kind, MapKind::rma);
    try {
        addRulesOfFile(write("rma=mix\nnormal\n"), words);
        FAIL();
    } catch (const TextureRuleError& error) {
        EXPECT_EQ(error.reason(), u"studio.txt line 2: 'normal' is not of the form KIND=WORD"_s);
    }
    try {
        addRulesOfFile(QUrl::fromLocalFile(folder.filePath(u"none"_s)), words);
        FAIL();
    } catch (const TextureRuleError& error) {
        EXPECT_EQ(error.reason(), u"none can't be read"_s);
    }
}

}  // namespace
