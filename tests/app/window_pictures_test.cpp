#include "painted_textures.h"
#include "picture_baseline.h"
#include "window_fixture.h"

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class WindowPictures : public WindowFixture {};

TEST_F(WindowPictures, OfThePbrToolAtTheStart) { expectPictures(window, QStringLiteral("window_start")); }

TEST_F(WindowPictures, OfThePbrToolWithTextures) {
    materials.importTexture(folder.save(QStringLiteral("Tiles.png"), paintedTiles(256, 256)),
                            TextureSlotKind::baseColor);
    materials.importTexture(folder.save(QStringLiteral("Tiles_normal.png"), paintedTiles(128, 256)),
                            TextureSlotKind::normal);
    expectPictures(window, QStringLiteral("window_material"));
}

TEST_F(WindowPictures, OfTheGeneratorWithASource) {
    showTool(StudioTool::normalGenerator);
    maps.importSourceTexture(folder.save(QStringLiteral("Tiles.png"), paintedTiles(256, 256)));
    expectPictures(window, QStringLiteral("window_generator"));
}

}  // namespace
