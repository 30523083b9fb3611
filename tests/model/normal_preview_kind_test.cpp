#include "model/normal_preview_kind.h"

#include "qstring_printing.h"

#include <gmock/gmock.h>

#include <map>

using namespace quarlin;
using testing::ElementsAre;

namespace {

TEST(NormalPreviewKind, ListsItsCasesInTileOrder) {
    EXPECT_THAT(
        allCases<NormalPreviewKind>(),
        ElementsAre(NormalPreviewKind::source, NormalPreviewKind::height, NormalPreviewKind::normal,
                    NormalPreviewKind::roughness, NormalPreviewKind::gloss, NormalPreviewKind::metallic,
                    NormalPreviewKind::occlusion, NormalPreviewKind::orm));
}

TEST(NormalPreviewKind, CarriesItsLabels) {
    struct Labels {
        const char* rawValue;
        const char* title;
        const char* subtitle;
    };
    const Labels expected[] = {
        {"source", "Source", "Original texture"},       {"height", "Height", "Generated grayscale"},
        {"normal", "Normal", "RGB tangent normal"},     {"roughness", "Roughness", "PBR roughness"},
        {"gloss", "Gloss", "Inverse roughness"},        {"metallic", "Metallic", "Heuristic metal mask"},
        {"occlusion", "AO", "Generated shadow helper"}, {"orm", "ORM", "R AO / G Rough / B Metal"},
    };
    std::size_t row = 0;
    for (const NormalPreviewKind kind : allCases<NormalPreviewKind>()) {
        SCOPED_TRACE(expected[row].rawValue);
        EXPECT_EQ(rawValue(kind), QLatin1String(expected[row].rawValue));
        EXPECT_EQ(id(kind), QLatin1String(expected[row].rawValue));
        EXPECT_EQ(title(kind), QLatin1String(expected[row].title));
        EXPECT_EQ(subtitle(kind), QLatin1String(expected[row].subtitle));
        ++row;
    }
    EXPECT_EQ(row, std::size(expected));
}

TEST(NormalPreviewKind, OnlyItsEightRawValuesGiveACase) {
    for (const NormalPreviewKind kind : allCases<NormalPreviewKind>()) {
        EXPECT_EQ(fromRawValue<NormalPreviewKind>(rawValue(kind)), kind);
    }
    EXPECT_EQ(fromRawValue<NormalPreviewKind>(u"ao"), std::nullopt);
    EXPECT_EQ(fromRawValue<NormalPreviewKind>(u"Source"), std::nullopt);
    EXPECT_EQ(fromRawValue<NormalPreviewKind>(u""), std::nullopt);
}

TEST(NormalPreviewKind, IsUsableAsAKey) {
    std::map<NormalPreviewKind, int> tiles;
    for (const NormalPreviewKind kind : allCases<NormalPreviewKind>()) {
        ++tiles[kind];
    }
    EXPECT_EQ(tiles.size(), 8U);
}

}  // namespace
