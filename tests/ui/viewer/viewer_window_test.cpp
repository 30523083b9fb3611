#include "model/generated_set.h"
#include "model/material_set.h"
#include "model/texture_slot_kind.h"
#include "painted_textures.h"
#include "ui/controls/segmented_picker.h"
#include "ui/panels/empty_preview.h"
#include "viewer_fixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialViewer : public MaterialViewerFixture {
protected:
    MaterialViewer() {
        ConversionSettings settings;
        settings.outputResolution = OutputResolution::matchBase;
        store.setSettings(settings);
        load(TextureSlotKind::baseColor);
        load(TextureSlotKind::normal);
    }

    void load(TextureSlotKind slot, int width = 700, int height = 600) {
        store.importTexture(folder.save(u"Brick_%1.png"_s.arg(rawValue(slot)), placeImage(width, height)),
                            slot);
        settle();
        finish(viewer);
    }

    void change(const std::function<void(ConversionSettings&)>& edit) {
        ConversionSettings settings = store.settings();
        edit(settings);
        store.setSettings(settings);
    }
};

TEST_F(MaterialViewer, ShowsTheMapAtTheSizeOfTheExport) {
    open(MaterialImage::baseColor);
    EXPECT_TRUE(viewer.isVisible());
    EXPECT_EQ(mapTitle(), u"Base"_s);
    EXPECT_EQ(viewer.windowTitle(), u"Base - Brick_baseColor"_s);
    EXPECT_EQ(state(), u"700x600"_s);
    pointAt({650, 300});
    EXPECT_EQ(probe(), u"x 650  y 300   R 138  G  44  B   7  A 255"_s);
}

TEST_F(MaterialViewer, ShowsThePreviewUntilTheMapIsMade) {
    viewer.open(maps, static_cast<int>(MaterialImage::orm));
    EXPECT_TRUE(viewer.isBusy());
    EXPECT_EQ(state(), u"Building 700x600 ..."_s);
    const QColor shown = canvas.viewport()->grab().toImage().pixelColor(canvas.viewportPosition({350, 300}));
    EXPECT_EQ(shown.blue(), 0);
    EXPECT_EQ(shown.green(), 166);
    finish(viewer);
    pointAt({350, 300});
    EXPECT_EQ(probe(), u"x 350  y 300   R 255  G 166  B   0  A 255"_s);
}

TEST_F(MaterialViewer, GoesFromMapToMapWithTheArrowKeys) {
    open(MaterialImage::baseColor);
    QStringList titles{mapTitle()};
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Right, Qt::Key_Left, Qt::Key_Up}) {
        press(canvas, key);
        titles << mapTitle();
    }
    EXPECT_EQ(titles, QStringList({u"Base"_s, u"ORM"_s, u"Normal"_s, u"Normal"_s, u"ORM"_s, u"Base"_s}));
    EXPECT_EQ(canvas.accessibleName(), u"Base"_s);
}

TEST_F(MaterialViewer, GoesFromMapToMapWithItsButtons) {
    open(MaterialImage::baseColor);
    EXPECT_FALSE(viewer.actions().previous.isEnabled());
    press(viewer, Qt::Key_PageDown);
    press(viewer, Qt::Key_PageDown);
    EXPECT_EQ(mapTitle(), u"Normal"_s);
    EXPECT_FALSE(viewer.actions().next.isEnabled());
    press(viewer, Qt::Key_PageUp);
    EXPECT_EQ(mapTitle(), u"ORM"_s);
}

TEST_F(MaterialViewer, ZoomsWithKeys) {
    open(MaterialImage::baseColor);
    press(canvas, Qt::Key_1);
    EXPECT_EQ(scale(), u"100%"_s);
    press(canvas, Qt::Key_Plus);
    EXPECT_EQ(scale(), u"200%"_s);
    press(canvas, Qt::Key_Minus);
    EXPECT_EQ(scale(), u"100%"_s);
    press(canvas, Qt::Key_F);
    EXPECT_TRUE(canvas.isFitted());
}

TEST_F(MaterialViewer, KeepsItsPlaceFromMapToMap) {
    open(MaterialImage::baseColor);
    press(canvas, Qt::Key_1);
    press(canvas, Qt::Key_Plus);
    const QPoint position = canvas.viewport()->rect().center();
    QTest::mouseMove(canvas.viewport(), position);
    const QPoint place = canvas.probedPixel()->place;
    press(canvas, Qt::Key_Right);
    finish(viewer);
    EXPECT_EQ(canvas.scale(), 2);
    EXPECT_EQ(canvas.probedPixel()->place, place);
}

TEST_F(MaterialViewer, ChoosesAChannelWithKeysAndWithThePicker) {
    open(MaterialImage::baseColor);
    const auto shown = [&] {
        settle();
        return canvas.viewport()->grab().toImage().pixelColor(canvas.viewportPosition({650, 300}));
    };
    auto& picker = *viewer.findChild<SegmentedPicker*>();
    press(canvas, Qt::Key_1);
    press(canvas, Qt::Key_G);
    EXPECT_EQ(shown(), QColor(44, 44, 44));
    EXPECT_EQ(picker.currentIndex(), 2);
    click(*picker.findChildren<QAbstractButton*>()[1]);
    EXPECT_EQ(shown(), QColor(138, 138, 138));
    EXPECT_EQ(viewer.actions().channel(), TextureChannel::red);
    press(canvas, Qt::Key_C);
    EXPECT_EQ(shown(), QColor(138, 44, 7));
    EXPECT_EQ(picker.currentIndex(), 0);
}

TEST_F(MaterialViewer, ShowsTilesWithAKeyAndWithItsBox) {
    open(MaterialImage::baseColor);
    press(canvas, Qt::Key_1);
    const QPoint left = canvas.viewportPosition({0, 0});
    auto& box = *viewer.findChild<QCheckBox*>();
    press(canvas, Qt::Key_T);
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(canvas.viewport()->grab().toImage().pixelColor(canvas.viewportPosition({0, 0})),
              QColor(0, 0, 7));
    click(box);
    EXPECT_FALSE(viewer.actions().tile.isChecked());
    EXPECT_EQ(canvas.viewportPosition({0, 0}), left);
}

TEST_F(MaterialViewer, ShowsNormalsBeforeAndAfterFlippingGreen) {
    open(MaterialImage::baseColor);
    auto& picker = child<SegmentedPicker>(viewer, u"flip"_s);
    EXPECT_FALSE(picker.isVisible());
    open(MaterialImage::normal);
    EXPECT_TRUE(picker.isVisible());
    EXPECT_EQ(picker.currentIndex(), 0);
    pointAt({650, 300});
    EXPECT_TRUE(probe().contains(u"G  44"_s)) << probe().toStdString();
    press(canvas, Qt::Key_X);
    finish(viewer);
    EXPECT_EQ(picker.currentIndex(), 1);
    EXPECT_TRUE(probe().contains(u"G 211"_s)) << probe().toStdString();
    EXPECT_EQ(state(), u"700x600, not as it is exported"_s);
    EXPECT_FALSE(store.settings().flipNormalGreen);
    click(*picker.findChildren<QAbstractButton*>()[0]);
    EXPECT_FALSE(viewer.isBusy());
    EXPECT_TRUE(probe().contains(u"G  44"_s)) << probe().toStdString();
}

TEST_F(MaterialViewer, StartsWithTheGreenOfTheExport) {
    change([](ConversionSettings& settings) { settings.flipNormalGreen = true; });
    store.buildPreview();
    settle();
    open(MaterialImage::normal);
    EXPECT_EQ(child<SegmentedPicker>(viewer, u"flip"_s).currentIndex(), 1);
    EXPECT_EQ(state(), u"700x600"_s);
    pointAt({650, 300});
    EXPECT_TRUE(probe().contains(u"G 211"_s)) << probe().toStdString();
}

TEST_F(MaterialViewer, FollowsNewPreviews) {
    open(MaterialImage::orm);
    pointAt({10, 10});
    EXPECT_TRUE(probe().contains(u"B   0"_s));
    change([](ConversionSettings& settings) { settings.defaultMetallic = 1; });
    settle();
    EXPECT_FALSE(viewer.isBusy());
    store.buildPreview();
    settle();
    finish(viewer);
    EXPECT_EQ(mapTitle(), u"ORM"_s);
    EXPECT_TRUE(probe().contains(u"B 255"_s)) << probe().toStdString();
}

TEST_F(MaterialViewer, FollowsANewSize) {
    open(MaterialImage::orm);
    load(TextureSlotKind::baseColor, 64, 32);
    EXPECT_EQ(state(), u"64x32"_s);
    EXPECT_TRUE(canvas.isFitted());
}

TEST_F(MaterialViewer, ShowsAnotherMapWhenItsOwnIsGone) {
    open(MaterialImage::normal);
    store.removeTexture(TextureSlotKind::normal);
    settle();
    finish(viewer);
    EXPECT_EQ(mapTitle(), u"Base"_s);
    EXPECT_FALSE(viewer.actions().previous.isEnabled());
}

TEST_F(MaterialViewer, ShowsNoPreviewWithoutTextures) {
    open(MaterialImage::normal);
    store.reset();
    settle();
    EXPECT_TRUE(viewer.findChild<EmptyPreview*>()->isVisible());
    EXPECT_FALSE(viewer.actions().next.isEnabled());
    EXPECT_FALSE(viewer.actions().zoomIn.isEnabled());
    EXPECT_EQ(probe(), QString());
    load(TextureSlotKind::baseColor);
    EXPECT_TRUE(canvas.isVisible());
    EXPECT_EQ(mapTitle(), u"Base"_s);
    EXPECT_TRUE(viewer.actions().zoomIn.isEnabled());
}

TEST_F(MaterialViewer, ReportsATextureThatCannotBeReadAnyMore) {
    QFile::remove(store.textures().at(TextureSlotKind::normal).url.toLocalFile());
    open(MaterialImage::normal);
    EXPECT_EQ(state(), u"Load failed: Could not read image: Brick_normal.png"_s);
}

TEST_F(MaterialViewer, DropsTheWorkOnAMapThatIsNotAwaited) {
    viewer.open(maps, static_cast<int>(MaterialImage::orm));
    press(canvas, Qt::Key_Right);
    press(canvas, Qt::Key_Left);
    press(canvas, Qt::Key_Left);
    finish(viewer);
    EXPECT_EQ(mapTitle(), u"Base"_s);
    pointAt({650, 300});
    EXPECT_EQ(probe(), u"x 650  y 300   R 138  G  44  B   7  A 255"_s);
}

TEST_F(MaterialViewer, ClosesWithEscapeAndForgetsItsMap) {
    viewer.open(maps, static_cast<int>(MaterialImage::orm));
    settle();
    press(canvas, Qt::Key_Escape);
    EXPECT_FALSE(viewer.isVisible());
    EXPECT_FALSE(viewer.isBusy());
    store.buildPreview();
    settle();
    EXPECT_FALSE(viewer.isBusy());
    open(MaterialImage::normal);
    EXPECT_EQ(mapTitle(), u"Normal"_s);
    EXPECT_EQ(state(), u"700x600"_s);
}

TEST_F(MaterialViewer, IsAGraphicWithANameForAssistiveTechnology) {
    open(MaterialImage::baseColor);
    const QAccessibleInterface& map = *QAccessible::queryAccessibleInterface(&canvas);
    EXPECT_EQ(map.role(), QAccessible::Graphic);
    EXPECT_EQ(map.text(QAccessible::Name), u"Base"_s);
    EXPECT_EQ(map.text(QAccessible::Description), u"Color + alpha"_s);
}

TEST_F(MaterialViewer, NamesEveryControlForAssistiveTechnology) {
    open(MaterialImage::normal);
    for (QWidget* widget : viewer.findChildren<QWidget*>()) {
        if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) != 0) {
            QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(accessible, nullptr);
            EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << widget->metaObject()->className();
        }
    }
}

class GeneratorViewer : public GeneratorViewerFixture {};

TEST_F(GeneratorViewer, ShowsEveryMapWithThePixelsOfTheExport) {
    NormalGeneratorSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    settings.materialName = u"Tiles"_s;
    store.setSettings(settings);
    store.importSourceTexture(folder.save(u"Tiles.png"_s, paintedTiles(600, 560)));
    chooser.folder = folder.url();
    store.exportSet();
    settle();
    open(GeneratedMap::source);
    for (const GeneratedMap map : allCases<GeneratedMap>()) {
        EXPECT_EQ(mapTitle(), title(map));
        for (const GeneratedFile file : allCases<GeneratedFile>()) {
            if (tableRow(file).map == map) {
                const QImage written(folder.path(u"Tiles/"_s + fileName(u"Tiles"_s, file)));
                for (const QPoint& pixel : {QPoint(20, 20), QPoint(50, 33), QPoint(599, 559)}) {
                    pointAt(pixel);
                    const auto probed = canvas.probedPixel();
                    EXPECT_EQ(probed->value, written.pixelColor(probed->place)) << title(map).toStdString();
                }
            }
        }
        press(canvas, Qt::Key_Right);
        finish(viewer);
    }
}

TEST_F(GeneratorViewer, FlipsTheGreenAsTheSettingDoes) {
    NormalGeneratorSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    store.setSettings(settings);
    store.importSourceTexture(folder.save(u"Tiles.png"_s, paintedTiles(200, 200)));
    open(GeneratedMap::normal);
    pointAt({32, 6});
    const QColor before = canvas.probedPixel()->value;
    press(canvas, Qt::Key_X);
    finish(viewer);
    const QColor after = canvas.probedPixel()->value;
    EXPECT_NE(before, after);
    settings = store.settings();
    settings.flipGreen = true;
    store.setSettings(settings);
    store.buildPreview();
    settle();
    finish(viewer);
    EXPECT_EQ(canvas.probedPixel()->value, after);
    EXPECT_EQ(state(), u"200x200"_s);
}

}  // namespace
