#include "contrast.h"
#include "ui/controls/button.h"
#include "ui/controls/segment.h"
#include "window_fixture.h"

#include <QAccessible>
#include <QCheckBox>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class KeyboardFocus : public WindowFixture {
protected:
    ~KeyboardFocus() override { useLightPalette(); }

    /// Where the keyboard is, as the accessible name of its control.
    static QString place() {
        const QWidget* focused = QApplication::focusWidget();
        QAccessibleInterface* accessible =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(focused));
        return accessible == nullptr ? QString() : accessible->text(QAccessible::Name);
    }

    static void pressCtrlTab() { press(*QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier); }

    static void give(QWidget& widget) {
        widget.clearFocus();
        // A reason for which Qt shows the focus, as for a control that is reached with Tab.
        widget.setFocus(Qt::ShortcutFocusReason);
        settle();
    }

    /// The number of pixels by which `widget` differs, clearly, from the same without the keyboard.
    static int ringPixels(QWidget& widget) {
        const QImage with = widget.grab().toImage();
        widget.clearFocus();
        settle();
        const QImage without = widget.grab().toImage();
        int count = 0;
        for (int y = 0; y < with.height(); ++y) {
            for (int x = 0; x < with.width(); ++x) {
                count += contrast(with.pixelColor(x, y), without.pixelColor(x, y)) >= 3 ? 1 : 0;
            }
        }
        return count;
    }

    void expectVisibleFocus(QWidget& widget, const char* what) {
        give(widget);
        ASSERT_EQ(QApplication::focusWidget(), &widget) << what;
        const int around = 2 * (widget.width() + widget.height());
        EXPECT_GT(ringPixels(widget), around / 2) << what;
    }
};

TEST_F(KeyboardFocus, CanBeSeenOnEveryKindOfControl) {
    load(TextureSlotKind::baseColor);
    for (const bool isDark : {false, true}) {
        isDark ? useDarkPalette() : useLightPalette();
        settle();
        expectVisibleFocus(child<Button>(page(), u"preview"_s), "button");
        expectVisibleFocus(child<Button>(page(), u"export"_s), "prominent button");
        expectVisibleFocus(child<Button>(page(), u"reset"_s), "bare symbol");
        expectVisibleFocus(withText<Segment>(page(), u"2048"_s), "chosen size");
        expectVisibleFocus(withText<QCheckBox>(page(), u"Write notes"_s), "check box");
    }
}

TEST_F(KeyboardFocus, GoesToTheFirstTextureOfAToolThatIsShownWithTheKeyboard) {
    child<QWidget>(page(), u"baseColor"_s).findChild<Button*>(u"choose"_s)->setFocus(Qt::TabFocusReason);
    pressCtrlTab();
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::normalGenerator);
    EXPECT_EQ(place(), u"Choose Source"_s);
}

TEST_F(KeyboardFocus, ReturnsToWhereItWasInATool) {
    withText<QCheckBox>(page(), u"Write notes"_s).setFocus(Qt::TabFocusReason);
    pressCtrlTab();
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::normalGenerator);
    pressCtrlTab();
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::pbr);
    EXPECT_EQ(place(), u"Write notes"_s);
}

TEST_F(KeyboardFocus, GoesToTheFirstTextureWhenItsOldPlaceIsGone) {
    load(TextureSlotKind::normal);
    child<QWidget>(page(), u"normal"_s).findChild<Button*>(u"replace"_s)->setFocus(Qt::TabFocusReason);
    pressCtrlTab();
    materials.reset();
    settle();
    pressCtrlTab();
    EXPECT_EQ(place(), u"Choose Base Color"_s);
}

TEST_F(KeyboardFocus, StaysOnTheTabsWhenTheyAreUsed) {
    tabs.setFocus(Qt::TabFocusReason);
    press(tabs, Qt::Key_Right);
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::normalGenerator);
    EXPECT_EQ(QApplication::focusWidget(), &tabs);
}

}  // namespace
