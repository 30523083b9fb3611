// The window with the picture and its controls.

#include "view3d/window/material_window.h"

#include "accessible_tree.h"
#include "painted_textures.h"
#include "picture_baseline.h"
#include "scene_fixture.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/controls/segmented_picker.h"
#include "view3d/window/material_view.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QSemaphore>
#include <QSignalSpy>

#include <atomic>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialWindows : public testing::Test {
protected:
    void SetUp() override {
        view.setMaterial(toolMaterial(materials));
        view.open();
        if (view.window() == nullptr) {
            GTEST_SKIP() << "there is no OpenGL";
        }
        view.window()->resize(760, 480);
        settle();
    }

    MaterialWindow& window() const { return *view.window(); }

    void waitForDetails() {
        settle();
        while (window().isBuilding()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    void load(const QImage& picture, const QString& name = u"Tiles.png"_s) {
        materials.importTexture(folder.save(name, picture), TextureSlotKind::baseColor);
        waitForDetails();
    }

    /// The color in the middle of the picture.
    QColor middle() const {
        window().scene().picture();
        const QImage picture = window().scene().picture();
        return picture.pixelColor(picture.width() / 2, picture.height() / 2);
    }

    void showColor() const {
        click(withText<QAbstractButton>(child<SegmentedPicker>(window(), u"Show"_s), u"Color"_s));
    }

    TextureFolder folder;
    ScriptedChooser chooser;
    MaterialStore materials{chooser};
    NormalGeneratorStore maps{chooser};
    QWidget main;
    MaterialView view{&main, QStringLiteral(QUARLIN_SCENE_MODULE)};
};

TEST_F(MaterialWindows, IsNotModalAndHasATitle) {
    EXPECT_EQ(window().windowTitle(), u"Material in 3D"_s);
    EXPECT_FALSE(window().isModal());
    EXPECT_TRUE(window().isWindow());
    EXPECT_FALSE(window().testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(MaterialWindows, SaysThatThereIsNothingYet) {
    EXPECT_TRUE(shows(window(), u"No previews yet: load a texture first."_s));
    load(paintedTiles(32, 32));
    EXPECT_FALSE(shows(window(), u"No previews yet: load a texture first."_s));
    EXPECT_TRUE(shows(window(), u"Tiles"_s));
}

TEST_F(MaterialWindows, FollowsTheStore) {
    showColor();
    EXPECT_EQ(middle(), QColor(Qt::white));
    materials.importTexture(folder.texture(u"red.png"_s, 64, 64, Qt::red), TextureSlotKind::baseColor);
    settle();
    EXPECT_EQ(middle(), QColor(Qt::red));
    waitForDetails();
    EXPECT_EQ(middle(), QColor(Qt::red));
    materials.importTexture(folder.texture(u"blue.png"_s, 64, 64, Qt::blue), TextureSlotKind::baseColor);
    waitForDetails();
    EXPECT_EQ(middle(), QColor(Qt::blue));
    materials.reset();
    waitForDetails();
    EXPECT_EQ(middle(), QColor(Qt::white));
}

TEST_F(MaterialWindows, ShowsTheMapsInDetailAfterThePreviews) {
    QSignalSpy details(&window(), &MaterialWindow::detailsShown);
    load(paintedTiles(1024, 1024));
    EXPECT_EQ(details.size(), 1);
}

TEST_F(MaterialWindows, FollowsTheSwitchOfTools) {
    showColor();
    materials.importTexture(folder.texture(u"red.png"_s, 64, 64, Qt::red), TextureSlotKind::baseColor);
    maps.importSourceTexture(folder.texture(u"green.png"_s, 64, 64, QColor(0, 255, 0)));
    view.setMaterial(toolMaterial(maps));
    waitForDetails();
    EXPECT_EQ(middle(), QColor(0, 255, 0));
    EXPECT_TRUE(shows(window(), u"green"_s));
    // The other tool's store is not followed any more.
    materials.reset();
    waitForDetails();
    EXPECT_EQ(middle(), QColor(0, 255, 0));
    view.setMaterial(toolMaterial(materials));
    waitForDetails();
    EXPECT_EQ(middle(), QColor(Qt::white));
}

TEST_F(MaterialWindows, OpensAsItWasClosed) {
    click(withText<QAbstractButton>(child<SegmentedPicker>(window(), u"Shape"_s), u"Cube"_s));
    window().close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();
    ASSERT_EQ(view.window(), nullptr);
    view.open();
    settle();
    EXPECT_EQ(child<SegmentedPicker>(window(), u"Shape"_s).currentIndex(), 1);
}

TEST_F(MaterialWindows, ClosesWithItsKeysWithoutWaitingForMaps) {
    QSemaphore gate;
    std::atomic<bool> isDone = false;
    ToolMaterial slow = toolMaterial(materials);
    slow.previews = [preview = plainMap(Qt::red)] { return SceneMaps{preview, {}, {}}; };
    slow.details = [&]() -> SceneMapWork {
        return [&] {
            constexpr int longest = 30'000;
            gate.tryAcquire(1, longest);
            isDone = true;
            return SceneMaps();
        };
    };
    view.setMaterial(slow);
    settle();
    EXPECT_TRUE(window().isBuilding());
    press(window(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(view.window(), nullptr);
    EXPECT_FALSE(isDone);
    gate.release();
    view.setMaterial(toolMaterial(materials));
    view.open();
    waitForDetails();
    EXPECT_TRUE(isDone);
}

TEST_F(MaterialWindows, OpeningItAgainBringsTheSameWindow) {
    MaterialWindow* before = view.window();
    view.open();
    EXPECT_EQ(view.window(), before);
}

TEST_F(MaterialWindows, DraggingThePictureTurnsTheMaterial) {
    load(paintedTiles(64, 64));
    QWidget& picture = *window().scene().widget();
    const QImage before = window().scene().picture();
    press(picture, Qt::Key_Right);
    window().scene().picture();
    EXPECT_NE(window().scene().picture(), before);
    press(picture, Qt::Key_Left);
    window().scene().picture();
    EXPECT_EQ(window().scene().picture(), before);
}

TEST_F(MaterialWindows, ThePictureHasANameForAssistiveTechnology) {
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(window().scene().widget());
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->text(QAccessible::Name), u"Material in 3D"_s);
    EXPECT_TRUE(picture->text(QAccessible::Description).contains(u"arrow keys"_s));
}

TEST_F(MaterialWindows, HasItsTextForScreenReaders) {
    load(paintedTiles(64, 64));
    expectAccessibleTree(window(), u"view3d"_s);
}

TEST_F(MaterialWindows, Pictures) {
    load(paintedTiles(256, 256));
    expectPictures(window(), u"material_in_3d"_s);
}

}  // namespace
