#include "model/texture_slot_kind.h"

#include "qstring_printing.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

using namespace quarlin;
using testing::ElementsAre;

namespace {

struct Expectation {
    TextureSlotKind slot;
    const char* rawValue;
    const char* title;
    const char* shortTitle;
    const char* systemImage;
    bool required;
    const char* help;
};

const Expectation expectations[] = {
    {TextureSlotKind::baseColor, "baseColor", "Base Color", "Color", "paintpalette", true,
     "Unlit albedo/base color. Diffuse maps work as a source, but baked lighting should be reduced when "
     "possible."},
    {TextureSlotKind::normal, "normal", "Normal", "Normal", "cube.transparent", false,
     "Tangent-space normal map. Enable Y flip if your source is DirectX-style."},
    {TextureSlotKind::occlusion, "occlusion", "Occlusion", "AO", "circle.lefthalf.filled", false,
     "Ambient occlusion. Packed into the red channel of the SL/glTF ORM map. Missing AO exports white."},
    {TextureSlotKind::roughness, "roughness", "Roughness / Gloss", "Rough", "sparkles.rectangle.stack", false,
     "Roughness grayscale. If your input is gloss/smoothness, enable invert."},
    {TextureSlotKind::metallic, "metallic", "Metallic", "Metal", "shield.lefthalf.filled", false,
     "Metallic grayscale. Most fabric, stone, wood, skin, plastic and painted items should stay black."},
};

TEST(TextureSlotKind, ListsItsCasesInDisplayOrder) {
    EXPECT_THAT(allCases<TextureSlotKind>(),
                ElementsAre(TextureSlotKind::baseColor, TextureSlotKind::normal, TextureSlotKind::occlusion,
                            TextureSlotKind::roughness, TextureSlotKind::metallic));
}

TEST(TextureSlotKind, CarriesItsLabels) {
    for (const Expectation& expected : expectations) {
        SCOPED_TRACE(expected.rawValue);
        EXPECT_EQ(rawValue(expected.slot), QLatin1String(expected.rawValue));
        EXPECT_EQ(title(expected.slot), QLatin1String(expected.title));
        EXPECT_EQ(shortTitle(expected.slot), QLatin1String(expected.shortTitle));
        EXPECT_EQ(systemImage(expected.slot), QLatin1String(expected.systemImage));
        EXPECT_EQ(help(expected.slot), QLatin1String(expected.help));
    }
}

TEST(TextureSlotKind, IsIdentifiedByItsRawValue) {
    for (const Expectation& expected : expectations) {
        EXPECT_EQ(id(expected.slot), QLatin1String(expected.rawValue));
        EXPECT_EQ(fromRawValue<TextureSlotKind>(QString::fromLatin1(expected.rawValue)), expected.slot);
    }
}

TEST(TextureSlotKind, OnlyBaseColorIsRequired) {
    for (const Expectation& expected : expectations) {
        EXPECT_EQ(required(expected.slot), expected.required) << expected.rawValue;
    }
}

TEST(TextureSlotKind, TitlesAreNoRawValues) {
    EXPECT_EQ(fromRawValue<TextureSlotKind>(u"Base Color"), std::nullopt);
    EXPECT_EQ(fromRawValue<TextureSlotKind>(u"basecolor"), std::nullopt);
    EXPECT_EQ(fromRawValue<TextureSlotKind>(u"baseColor "), std::nullopt);
    EXPECT_EQ(fromRawValue<TextureSlotKind>(u""), std::nullopt);
}

TEST(TextureSlotKind, KeysOrderedMapsInDisplayOrder) {
    const std::set<TextureSlotKind> slots{TextureSlotKind::metallic, TextureSlotKind::baseColor,
                                          TextureSlotKind::occlusion};
    EXPECT_THAT(slots, ElementsAre(TextureSlotKind::baseColor, TextureSlotKind::occlusion,
                                   TextureSlotKind::metallic));
}

}  // namespace
