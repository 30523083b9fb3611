#include "model/generated_set.h"
#include "model/material_set.h"
#include "model/texture_slot_kind.h"
#include "painted_textures.h"
#include "picture_baseline.h"
#include "viewer_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr QSize windowSize(760, 560);

class MaterialViewerPictures : public MaterialViewerFixture {
protected:
    MaterialViewerPictures() {
        QImage tiles = paintedTiles(160, 128).convertToFormat(QImage::Format_RGBA8888);
        for (int y = 40; y < 88; ++y) {
            for (int x = 0; x < tiles.width(); ++x) {
                QColor color = tiles.pixelColor(x, y);
                color.setAlpha((x * 2) % 256);
                tiles.setPixelColor(x, y, color);
            }
        }
        ConversionSettings settings;
        settings.outputResolution = OutputResolution::matchBase;
        store.setSettings(settings);
        store.importTexture(folder.save(u"Tiles.png"_s, tiles), TextureSlotKind::baseColor);
        viewer.resize(windowSize);
    }
};

TEST_F(MaterialViewerPictures, FittedWithTransparency) {
    open(MaterialImage::baseColor);
    expectPictures(viewer, u"viewer_fitted"_s);
}

TEST_F(MaterialViewerPictures, TiledInGreenWithTheFocusOnAButton) {
    open(MaterialImage::baseColor);
    press(canvas, Qt::Key_T);
    press(canvas, Qt::Key_G);
    for (int stop = 0; stop < 2; ++stop) {
        press(*QApplication::focusWidget(), Qt::Key_Tab);
    }
    expectPictures(viewer, u"viewer_tiled_green"_s);
}

TEST_F(MaterialViewerPictures, Empty) {
    open(MaterialImage::baseColor);
    store.reset();
    settle();
    expectPictures(viewer, u"viewer_empty"_s);
}

class GeneratorViewerPictures : public GeneratorViewerFixture {};

TEST_F(GeneratorViewerPictures, NormalsAt1600PercentWithTheProbe) {
    NormalGeneratorSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    store.setSettings(settings);
    store.importSourceTexture(folder.save(u"Tiles.png"_s, paintedTiles(256, 192)));
    viewer.resize(windowSize);
    open(GeneratedMap::normal);
    press(canvas, Qt::Key_1);
    for (int step = 0; step < 4; ++step) {
        press(canvas, Qt::Key_Plus);
    }
    press(canvas, Qt::Key_Left, Qt::ShiftModifier);
    press(canvas, Qt::Key_X);
    finish(viewer);
    expectPictures(viewer, u"viewer_normals"_s);
}

}  // namespace
