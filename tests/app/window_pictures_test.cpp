#include "model/texture_slot_kind.h"
#include "painted_textures.h"
#include "picture_baseline.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class WindowPictures : public WindowFixture {};

TEST_F(WindowPictures, OfThePbrToolAtTheStart) { expectPictures(window, u"window_start"_s); }

TEST_F(WindowPictures, OfThePbrToolWithTextures) {
    materials.importTexture(folder.save(u"Tiles.png"_s, paintedTiles(256, 256)), TextureSlotKind::baseColor);
    materials.importTexture(folder.save(u"Tiles_normal.png"_s, paintedTiles(128, 256)),
                            TextureSlotKind::normal);
    expectPictures(window, u"window_material"_s);
}

TEST_F(WindowPictures, OfTheGeneratorWithASource) {
    showTool(StudioTool::normalGenerator);
    maps.importSourceTexture(folder.save(u"Tiles.png"_s, paintedTiles(256, 256)));
    expectPictures(window, u"window_generator"_s);
}

}  // namespace
