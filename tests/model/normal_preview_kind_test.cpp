#include "model/generated_set.h"

#include "qstring_printing.h"
#include "set_files.h"

#include <gmock/gmock.h>

#include <map>
#include <vector>

using namespace quarlin;
using namespace quarlin::fixtures;
using testing::ElementsAreArray;

namespace {

TEST(NormalPreviewKind, ListsItsCasesInTileOrder) {
    std::vector<NormalPreviewKind> expected;
    for (const auto& tile : generatedTiles()) {
        expected.push_back(tile.kind);
    }
    EXPECT_THAT(allCases<NormalPreviewKind>(), ElementsAreArray(expected));
}

TEST(NormalPreviewKind, CarriesItsLabels) {
    for (const auto& tile : generatedTiles()) {
        SCOPED_TRACE(tile.rawValue);
        EXPECT_EQ(rawValue(tile.kind), QLatin1String(tile.rawValue));
        EXPECT_EQ(id(tile.kind), QLatin1String(tile.rawValue));
        EXPECT_EQ(title(tile.kind), QLatin1String(tile.title));
        EXPECT_EQ(subtitle(tile.kind), QLatin1String(tile.subtitle));
    }
}

TEST(NormalPreviewKind, OnlyItsRawValuesGiveACase) {
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
    EXPECT_EQ(tiles.size(), generatedTiles().size());
}

}  // namespace
