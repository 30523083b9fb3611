#include "generator_input_panel.h"
#include "generator_settings_panel.h"
#include "material_settings_panel.h"
#include "painted_textures.h"
#include "picture_baseline.h"
#include "texture_card.h"
#include "texture_sidebar.h"
#include "tool_preview_panel.h"
#include "view_fixture.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialPictures : public StoreFixture<MaterialStore> {
protected:
    void load() {
        store.importTexture(folder.save(QStringLiteral("Tiles.png"), paintedTiles(256, 256)),
                            TextureSlotKind::baseColor);
        store.importTexture(
            folder.save(QStringLiteral("A name that is much longer than the card is wide.png"),
                        paintedTiles(256, 128)),
            TextureSlotKind::roughness);
        store.importTexture(folder.save(QStringLiteral("Größe Кирпич.png"), paintedTiles(128, 256)),
                            TextureSlotKind::metallic);
    }
};

TEST_F(MaterialPictures, SidebarEmpty) {
    ViewWindow window(new TextureSidebar(store), QSize(320, 480));
    expectPictures(window.view(), QStringLiteral("sidebar_empty"));
}

TEST_F(MaterialPictures, SidebarLoadedAndDraggedOver) {
    load();
    ViewWindow window(new TextureSidebar(store), QSize(320, 540));
    const auto files = dragged({folder.texture(QStringLiteral("a.png"))});
    dragOver(child<TextureCard>(window.view(), QStringLiteral("normal")), *files);
    expectPictures(window.view(), QStringLiteral("sidebar_loaded"));
}

TEST_F(MaterialPictures, SettingsEmpty) {
    ViewWindow window(new MaterialSettingsPanel(store), QSize(440, 600));
    expectPictures(window.view(), QStringLiteral("material_settings_empty"));
}

TEST_F(MaterialPictures, SettingsLoaded) {
    load();
    ViewWindow window(new MaterialSettingsPanel(store), QSize(360, 600));
    press(*QApplication::focusWidget(), Qt::Key_Tab);
    expectPictures(window.view(), QStringLiteral("material_settings_loaded"));
}

TEST_F(MaterialPictures, PreviewEmpty) {
    ViewWindow window(makePreviewPanel(store, QStringLiteral("photo.on.rectangle.angled")), QSize(380, 320));
    expectPictures(window.view(), QStringLiteral("material_preview_empty"));
}

TEST_F(MaterialPictures, PreviewLoaded) {
    load();
    ViewWindow window(makePreviewPanel(store, QStringLiteral("photo.on.rectangle.angled")), QSize(380, 640));
    expectPictures(window.view(), QStringLiteral("material_preview_loaded"));
}

class GeneratorPictures : public StoreFixture<NormalGeneratorStore> {
protected:
    void load() {
        store.importSourceTexture(folder.save(QStringLiteral("Tiles.png"), paintedTiles(256, 256)));
    }
};

TEST_F(GeneratorPictures, InputLoaded) {
    load();
    ViewWindow window(new GeneratorInputPanel(store), QSize(320, 180));
    expectPictures(window.view(), QStringLiteral("generator_input_loaded"));
}

TEST_F(GeneratorPictures, Settings) {
    load();
    ViewWindow window(new GeneratorSettingsPanel(store), QSize(440, 860));
    expectPictures(window.view(), QStringLiteral("generator_settings"));
}

TEST_F(GeneratorPictures, PreviewLoaded) {
    load();
    ViewWindow window(makePreviewPanel(store, QStringLiteral("mountain.2")), QSize(520, 640));
    expectPictures(window.view(), QStringLiteral("generator_preview_loaded"));
}

}  // namespace
