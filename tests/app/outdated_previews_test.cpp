#include "ui/controls/slider.h"
#include "window_fixture.h"

#include <QAccessible>
#include <QCheckBox>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class OutdatedPreviews : public WindowFixture {
protected:
    Button& preview() const { return child<Button>(page(), u"preview"_s); }

    /// Whether the previews are marked as out of date; the header and both buttons must agree.
    bool areMarked() const {
        const QWidget& dot = child<QWidget>(page(), u"outdated"_s);
        const bool header = dot.isVisible();
        if (header) {
            // Next to the title, which stays where it is.
            const TextLabel& title = withText<TextLabel>(*dot.parentWidget(), u"Preview"_s);
            EXPECT_EQ(title.x(), 16);
            EXPECT_EQ(dot.x(), title.geometry().right() + 1 + 6);
        }
        EXPECT_EQ(preview().isMarked(), header);
        EXPECT_EQ(toolBarButtons()[0]->isMarked(), header);
        return header;
    }
    void toggle(const char* title) { click(withText<QCheckBox>(page(), QString::fromLatin1(title))); }
};

TEST_F(OutdatedPreviews, AreNotMarkedWithoutPreviews) {
    EXPECT_FALSE(areMarked());
    toggle("Flip normal green channel");
    EXPECT_FALSE(areMarked());
}

TEST_F(OutdatedPreviews, AreMarkedOnceASettingChangesThem) {
    load(TextureSlotKind::baseColor);
    EXPECT_FALSE(areMarked());
    const QImage shown = materials.previews().at(OutputPreviewKind::orm);
    toggle("Flip normal green channel");
    EXPECT_TRUE(areMarked());
    EXPECT_EQ(materials.previews().at(OutputPreviewKind::orm), shown);
    click(preview());
    EXPECT_FALSE(areMarked());
}

TEST_F(OutdatedPreviews, AreNotMarkedOnceTheSettingIsBack) {
    load(TextureSlotKind::baseColor);
    toggle("Flip normal green channel");
    toggle("Flip normal green channel");
    EXPECT_FALSE(areMarked());
}

TEST_F(OutdatedPreviews, AreNotMarkedForWhatNoPictureShows) {
    load(TextureSlotKind::baseColor);
    toggle("Write notes");
    toggle("Write .gltf material");
    ConversionSettings settings = materials.settings();
    settings.materialName = u"Other"_s;
    materials.setSettings(settings);
    settle();
    EXPECT_FALSE(areMarked());
}

TEST_F(OutdatedPreviews, OfTheGeneratorAreMarkedToo) {
    showTool(StudioTool::normalGenerator);
    loadSource();
    EXPECT_FALSE(areMarked());
    toggle("Write height helper");
    EXPECT_FALSE(areMarked());
    press(*page().findChild<Slider*>(), Qt::Key_Right);
    EXPECT_TRUE(areMarked());
    press(window, Qt::Key_R, {Qt::ControlModifier | Qt::ShiftModifier});
    EXPECT_FALSE(areMarked());
}

TEST_F(OutdatedPreviews, AreDescribedToAssistiveTechnology) {
    load(TextureSlotKind::baseColor);
    toggle("Flip normal green channel");
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&preview());
    EXPECT_EQ(accessible->text(QAccessible::Description), u"The previews are out of date."_s);
}

TEST_F(OutdatedPreviews, AreMarkedWhereTheyCanBeSeen) {
    load(TextureSlotKind::baseColor);
    const QImage before = preview().grab().toImage();
    toggle("Flip normal green channel");
    EXPECT_NE(preview().grab().toImage(), before);
}

}  // namespace
