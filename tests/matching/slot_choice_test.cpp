#include "matching/texture_set.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

/// Two files of which the first is used with `preference` and the second by default.
struct Choice {
    const char* preference;
    const char* preferred;
    const char* byDefault;
    TextureSlotKind slot;
    /// Why the one that is used by default is used.
    const char* reason;
};

class SlotChoices : public testing::TestWithParam<Choice> {
protected:
    static MatchedTextures matched(const char* preference) {
        const Choice& choice = GetParam();
        const TextureFolder folder{
            u"/textures"_s,
            {u"/textures/"_s + QString::fromUtf8(choice.preferred),
             u"/textures/"_s + QString::fromUtf8(choice.byDefault), u"/textures/brick_color.png"_s}};
        TextureRules rules;
        if (*preference != '\0') {
            EXPECT_TRUE(applyPreference(QString::fromUtf8(preference), rules.preference)) << preference;
        }
        return matchTextures(folder, rules);
    }
    static std::string usedIn(const MatchedTextures& textures) {
        return textures.sets.at(0).files.at(GetParam().slot).path.section(u'/', -1).toStdString();
    }
};

TEST_P(SlotChoices, FollowThePreference) {
    EXPECT_EQ(usedIn(matched(GetParam().preference)), GetParam().preferred);
    const MatchedTextures textures = matched("");
    EXPECT_EQ(usedIn(textures), GetParam().byDefault);
    ASSERT_EQ(textures.unused.size(), 1U);
    EXPECT_EQ(textures.unused[0].reason, UnusedReason::secondChoice);
    EXPECT_EQ(textures.unused[0].text.toStdString(),
              std::string(GetParam().byDefault) + " is used instead, " + GetParam().reason);
}

using enum TextureSlotKind;

INSTANTIATE_TEST_SUITE_P(
    Of, SlotChoices,
    testing::Values(
        Choice{"smaller", "brick_normal_1k.png", "brick_normal_2k.png", normal, "which is larger"},
        Choice{"1k", "brick_normal_1k.png", "brick_normal_4k.png", normal, "which is larger"},
        Choice{"lossy", "brick_normal.jpg", "brick_normal.png", normal, "which is lossless"},
        Choice{"jpg", "brick_normal.jpg", "brick_normal.tga", normal, "which is lossless"},
        Choice{"dx", "brick_NormalDX.png", "brick_NormalGL.png", normal, "which is for OpenGL"},
        Choice{"gloss", "brick_gloss.png", "brick_roughness.png", roughness, "which is roughness"}));

TEST(TexturePreference, HasKnownWordsOnly) {
    TexturePreference preference;
    for (const QString& word : preferenceWords()) {
        EXPECT_TRUE(applyPreference(word, preference)) << word.toStdString();
    }
    for (const char* word : {"", "big", "exr", "3"}) {
        EXPECT_FALSE(applyPreference(QString::fromUtf8(word), preference)) << word;
    }
}

TEST(TexturePreference, TakesPackedMapsOnRequest) {
    const TextureFolder folder{u"/t"_s, {u"/t/a_color.png"_s, u"/t/a_orm.png"_s, u"/t/a_roughness.png"_s}};
    TextureRules rules;
    EXPECT_EQ(matchTextures(folder, rules).sets[0].files.at(roughness).channel, std::nullopt);
    ASSERT_TRUE(applyPreference(u"packed"_s, rules.preference));
    ASSERT_TRUE(rules.preference.prefersPacked);
    EXPECT_EQ(matchTextures(folder, rules).sets[0].files.at(roughness).channel, TextureChannel::green);
}

}  // namespace
