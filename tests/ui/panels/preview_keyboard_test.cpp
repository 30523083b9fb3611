#include "model/texture_slot_kind.h"
#include "stores/material_store.h"
#include "ui/panels/log_view.h"
#include "ui/panels/tool_preview_panel.h"
#include "view_fixture.h"

#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// A panel with more tiles and lines than fit, whose log has the keyboard.
class PreviewKeyboard : public StoreFixture<MaterialStore> {
protected:
    PreviewKeyboard() {
        store.importTexture(folder.texture(u"a.png"_s), TextureSlotKind::baseColor);
        for (int line = 0; line < 30; ++line) {
            store.buildPreview();
        }
        settle();
        log.setFocus(Qt::TabFocusReason);
        QTextCursor start(log.document());
        log.setTextCursor(start);
        bar.setValue(0);
    }

    ViewWindow window{makePreviewPanel(store, u"photo"_s), QSize(380, 400)};
    QWidget& view = window.view();
    LogView& log = *view.findChild<LogView*>();
    QScrollArea& area = *view.findChild<QScrollArea*>();
    QScrollBar& bar = *area.verticalScrollBar();

    bool showsCaret() const {
        const QRect caret = log.cursorRect();
        return area.viewport()->rect().contains(
            QRect(log.mapTo(area.viewport(), caret.topLeft()), caret.size()));
    }
};

TEST_F(PreviewKeyboard, ScrollsByPagesInBothDirections) {
    press(log, Qt::Key_PageDown);
    const int down = bar.value();
    EXPECT_GT(down, 0);
    press(log, Qt::Key_PageDown);
    EXPECT_GT(bar.value(), down);
    press(log, Qt::Key_PageUp);
    press(log, Qt::Key_PageUp);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(PreviewKeyboard, FollowsTheCaretOfTheLog) {
    for (int line = 0; line < 31; ++line) {
        press(log, Qt::Key_Down);
        ASSERT_TRUE(showsCaret()) << line;
    }
    EXPECT_GT(bar.value(), 0);
    press(log, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_TRUE(showsCaret());
}

TEST_F(PreviewKeyboard, ScrollsUpToTheTilesFromTheFirstLine) {
    press(log, Qt::Key_End, Qt::ControlModifier);
    press(log, Qt::Key_Home, Qt::ControlModifier);
    ASSERT_GT(bar.value(), 0);
    for (int presses = 0; presses < 40; ++presses) {
        press(log, Qt::Key_Up);
    }
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(log.textCursor().position(), 0);
}

TEST_F(PreviewKeyboard, SelectsLinesWithShift) {
    press(log, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(log.textCursor().hasSelection());
    press(log, Qt::Key_End, {Qt::ControlModifier | Qt::ShiftModifier});
    EXPECT_EQ(log.textCursor().selectedText().size(), log.toPlainText().size());
}

TEST_F(PreviewKeyboard, ShowsTheFocusOfTheLogAroundItsLetters) {
    press(log, Qt::Key_End, Qt::ControlModifier);
    log.clearFocus();
    settle();
    const auto picture = [&] { return view.grab().toImage(); };
    const QImage without = picture();
    QTest::keyClick(&view, Qt::Key_Tab);
    log.setFocus(Qt::TabFocusReason);
    settle();
    const QImage with = picture();
    const QRect inside = QRect(log.mapTo(&view, QPoint()), log.size())
                             .intersected(QRect(area.mapTo(&view, QPoint()), area.size()));
    // The ring has changed pixels, but none of the log's own, except those of the caret.
    int changedInside = 0;
    int changedOutside = 0;
    for (int y = 0; y < with.height(); ++y) {
        for (int x = 0; x < with.width(); ++x) {
            if (with.pixel(x, y) != without.pixel(x, y)) {
                ++(inside.contains(x, y) ? changedInside : changedOutside);
            }
        }
    }
    EXPECT_GT(changedOutside, 2 * inside.height());
    EXPECT_LE(changedInside, 2 * log.cursorRect().height());
}

}  // namespace
