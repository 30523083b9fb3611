#include "model/conversion_settings.h"
#include "model/generated_set.h"
#include "model/material_set.h"
#include "model/output_resolution.h"
#include "model/texture_slot_kind.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/controls/link_button.h"
#include "ui/display/symbol_view.h"
#include "ui/layout/adaptive_grid.h"
#include "ui/panels/empty_preview.h"
#include "ui/panels/log_view.h"
#include "ui/panels/preview_tile.h"
#include "ui/panels/tool_preview_panel.h"
#include "view_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// The titles of the tiles in the order of their places, row by row.
QStringList tileTitles(const QWidget& view) {
    QList<const PreviewTile*> tiles;
    for (const PreviewTile* tile : view.findChildren<PreviewTile*>()) {
        tiles << tile;
    }
    std::sort(tiles.begin(), tiles.end(), [](const PreviewTile* a, const PreviewTile* b) {
        return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
    });
    QStringList titles;
    for (const PreviewTile* tile : tiles) {
        titles << tile->title();
    }
    return titles;
}

template <typename Store>
class PanelFixture : public StoreFixture<Store> {
protected:
    explicit PanelFixture(const QString& emptySymbol)
        : window(makePreviewPanel(this->store, emptySymbol), QSize(380, 900)) {}

    ViewWindow window;
    QWidget& view = window.view();
    LogView& log = *view.findChild<LogView*>();
    EmptyPreview& empty = *view.findChild<EmptyPreview*>();
    LinkButton& lastExport = child<LinkButton>(view, u"lastExport"_s);
};

class MaterialPreviewPanel : public PanelFixture<MaterialStore> {
protected:
    MaterialPreviewPanel() : PanelFixture(u"photo.on.rectangle.angled"_s) {}

    void load(TextureSlotKind kind) {
        store.importTexture(folder.texture(u"a.png"_s), kind);
        settle();
    }
};

class GeneratorPreviewPanel : public PanelFixture<NormalGeneratorStore> {
protected:
    GeneratorPreviewPanel() : PanelFixture(u"mountain.2"_s) {}

    void load() {
        store.importSourceTexture(folder.texture(u"a.png"_s));
        settle();
    }
};

TEST_F(MaterialPreviewPanel, ShowsNoPreviewAtTheStart) {
    EXPECT_TRUE(shows(view, u"Preview"_s));
    EXPECT_TRUE(empty.isVisible());
    EXPECT_EQ(empty.height(), 180);
    EXPECT_TRUE(shows(empty, u"No Preview"_s));
    EXPECT_EQ(empty.findChild<SymbolView*>()->symbol(), u"photo.on.rectangle.angled"_s);
    EXPECT_EQ(empty.findChild<SymbolView*>()->size(), QSize(38, 38));
    EXPECT_FALSE(lastExport.isVisible());
    EXPECT_EQ(log.lines(), store.logLines());
    EXPECT_EQ(log.lines().size(), 1);
}

TEST_F(MaterialPreviewPanel, ShowsATileForEachPreviewInOrder) {
    load(TextureSlotKind::baseColor);
    load(TextureSlotKind::normal);
    EXPECT_FALSE(empty.isVisible());
    EXPECT_EQ(tileTitles(view), QStringList({u"Base"_s, u"ORM"_s, u"Normal"_s}));
    const auto tiles = view.findChildren<PreviewTile*>();
    EXPECT_EQ(tiles[0]->subtitle(), u"Color + alpha"_s);
    EXPECT_EQ(tiles[0]->image(), store.previews().at(OutputPreviewKind::baseColor));
}

TEST_F(MaterialPreviewPanel, LeavesNoGapForAMissingPreview) {
    load(TextureSlotKind::normal);
    QStringList expected;
    for (const OutputPreviewKind kind : allCases<OutputPreviewKind>()) {
        if (store.previews().contains(kind)) {
            expected << title(kind);
        }
    }
    EXPECT_LT(expected.size(), 3);
    EXPECT_EQ(tileTitles(view), expected);
}

TEST_F(MaterialPreviewPanel, ShowsNoPreviewAgainWhenTheLastTextureGoes) {
    load(TextureSlotKind::baseColor);
    store.removeTexture(TextureSlotKind::baseColor);
    settle();
    EXPECT_TRUE(empty.isVisible());
    EXPECT_TRUE(tileTitles(view).isEmpty());
}

TEST_F(MaterialPreviewPanel, MakesItsTilesSquareAtTheSetMeasures) {
    load(TextureSlotKind::baseColor);
    const PreviewTile* tile = view.findChild<PreviewTile*>();
    const QWidget* picture = tile->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    EXPECT_EQ(picture->geometry().topLeft(), QPoint(8, 8));
    EXPECT_EQ(picture->width(), tile->width() - 16);
    EXPECT_EQ(picture->height(), picture->width());
}

TEST_F(MaterialPreviewPanel, ShowsTheNameOfTheLastExport) {
    load(TextureSlotKind::baseColor);
    chooser.folder = folder.url();
    ConversionSettings settings;
    settings.materialName = u"My Brick"_s;
    settings.outputResolution = OutputResolution::matchBase;
    store.setSettings(settings);
    store.exportMaterialSet();
    settle();
    EXPECT_TRUE(lastExport.isVisible());
    EXPECT_EQ(lastExport.text(), u"My_Brick"_s);
    store.reset();
    settle();
    EXPECT_FALSE(lastExport.isVisible());
}

TEST_F(MaterialPreviewPanel, ShowsTheLogOldestFirst) {
    load(TextureSlotKind::baseColor);
    QStringList oldestFirst = store.logLines();
    std::reverse(oldestFirst.begin(), oldestFirst.end());
    EXPECT_EQ(log.lines(), oldestFirst);
    EXPECT_EQ(log.toPlainText(), oldestFirst.join(u'\n'));
}

TEST_F(MaterialPreviewPanel, ShowsIdenticalLinesEach) {
    store.removeTexture(TextureSlotKind::normal);
    store.removeTexture(TextureSlotKind::normal);
    settle();
    EXPECT_EQ(log.lines().count(stamped(u"Normal removed."_s)), 2);
}

TEST_F(MaterialPreviewPanel, ShowsOneLineAfterAReset) {
    load(TextureSlotKind::baseColor);
    store.reset();
    settle();
    EXPECT_EQ(log.toPlainText(), u"Inputs cleared."_s);
}

TEST_F(MaterialPreviewPanel, FitsItsColumnsToTheWidth) {
    load(TextureSlotKind::baseColor);
    load(TextureSlotKind::normal);
    const auto columns = [&](int width) {
        view.resize(width, 900);
        settle();
        QSet<int> places;
        for (const PreviewTile* tile : view.findChildren<PreviewTile*>()) {
            EXPECT_GE(tile->width(), 140) << width;
            places << tile->x();
        }
        return places.size();
    };
    EXPECT_EQ(columns(320), 1);
    EXPECT_EQ(columns(380), 2);
    EXPECT_EQ(columns(500), 3);
    EXPECT_EQ(columns(380), 2);
}

TEST_F(GeneratorPreviewPanel, ShowsNoPreviewAtTheStart) {
    EXPECT_TRUE(empty.isVisible());
    EXPECT_EQ(empty.findChild<SymbolView*>()->symbol(), u"mountain.2"_s);
    EXPECT_FALSE(lastExport.isVisible());
    EXPECT_EQ(log.toPlainText(),
              u"Load one source texture to generate Normal, Roughness, Gloss, "
              "Metallic, AO and ORM maps."_s);
}

TEST_F(GeneratorPreviewPanel, ShowsATileForEachMapInOrder) {
    load();
    QStringList expected;
    for (const NormalPreviewKind kind : allCases<NormalPreviewKind>()) {
        expected << title(kind);
    }
    EXPECT_EQ(tileTitles(view), expected);
}

TEST(PreviewTiles, FollowTheOrderOfTheKindsAndSkipWhatIsMissing) {
    QImage image(1, 1, QImage::Format_RGB32);
    const auto tiles = previewTiles<NormalPreviewKind>({{NormalPreviewKind::orm, image},
                                                        {NormalPreviewKind::source, image},
                                                        {NormalPreviewKind::gloss, image}});
    ASSERT_EQ(tiles.size(), 3U);
    EXPECT_EQ(tiles[0].title, u"Source"_s);
    EXPECT_EQ(tiles[1].title, u"Gloss"_s);
    EXPECT_EQ(tiles[2].subtitle, u"R AO / G Rough / B Metal"_s);
}

}  // namespace
