#include "model/texture_slot_kind.h"
#include "painted_textures.h"
#include "picture_baseline.h"
#include "ui/panels/generator_input_panel.h"
#include "ui/panels/generator_settings_panel.h"
#include "ui/panels/material_settings_panel.h"
#include "ui/panels/texture_card.h"
#include "ui/panels/texture_sidebar.h"
#include "ui/panels/tool_preview_panel.h"
#include "view_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialPictures : public StoreFixture<MaterialStore> {
protected:
    void load() {
        store.importTexture(folder.save(u"Tiles.png"_s, paintedTiles(256, 256)), TextureSlotKind::baseColor);
        store.importTexture(
            folder.save(u"A name that is much longer than the card is wide.png"_s, paintedTiles(256, 128)),
            TextureSlotKind::roughness);
        store.importTexture(folder.save(u"Größe Кирпич.png"_s, paintedTiles(128, 256)),
                            TextureSlotKind::metallic);
    }
};

TEST_F(MaterialPictures, SidebarEmpty) {
    ViewWindow window(new TextureSidebar(store), QSize(320, 480));
    expectPictures(window.view(), u"sidebar_empty"_s);
}

TEST_F(MaterialPictures, SidebarLoadedAndDraggedOver) {
    load();
    ViewWindow window(new TextureSidebar(store), QSize(320, 540));
    const auto files = dragged({folder.texture(u"a.png"_s)});
    dragOver(child<TextureCard>(window.view(), u"normal"_s), *files);
    expectPictures(window.view(), u"sidebar_loaded"_s);
}

TEST_F(MaterialPictures, SettingsEmpty) {
    ViewWindow window(new MaterialSettingsPanel(store), QSize(440, 600));
    expectPictures(window.view(), u"material_settings_empty"_s);
}

TEST_F(MaterialPictures, SettingsLoaded) {
    load();
    ViewWindow window(new MaterialSettingsPanel(store), QSize(360, 600));
    press(*QApplication::focusWidget(), Qt::Key_Tab);
    expectPictures(window.view(), u"material_settings_loaded"_s);
}

TEST_F(MaterialPictures, PreviewEmpty) {
    ViewWindow window(makePreviewPanel(store, u"photo.on.rectangle.angled"_s), QSize(380, 320));
    expectPictures(window.view(), u"material_preview_empty"_s);
}

TEST_F(MaterialPictures, PreviewLoaded) {
    load();
    ViewWindow window(makePreviewPanel(store, u"photo.on.rectangle.angled"_s), QSize(380, 640));
    expectPictures(window.view(), u"material_preview_loaded"_s);
}

class GeneratorPictures : public StoreFixture<NormalGeneratorStore> {
protected:
    void load() { store.importSourceTexture(folder.save(u"Tiles.png"_s, paintedTiles(256, 256))); }
};

TEST_F(GeneratorPictures, InputLoaded) {
    load();
    ViewWindow window(new GeneratorInputPanel(store), QSize(320, 180));
    expectPictures(window.view(), u"generator_input_loaded"_s);
}

TEST_F(GeneratorPictures, Settings) {
    load();
    ViewWindow window(new GeneratorSettingsPanel(store), QSize(440, 860));
    expectPictures(window.view(), u"generator_settings"_s);
}

TEST_F(GeneratorPictures, PreviewLoaded) {
    load();
    ViewWindow window(makePreviewPanel(store, u"mountain.2"_s), QSize(520, 640));
    expectPictures(window.view(), u"generator_preview_loaded"_s);
}

}  // namespace
