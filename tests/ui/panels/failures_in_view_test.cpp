#include "accessible_tree.h"
#include "model/texture_slot_kind.h"
#include "stores/material_store.h"
#include "ui/panels/failure_alert.h"
#include "ui/panels/log_view.h"
#include "ui/panels/tool_preview_panel.h"
#include "view_fixture.h"

#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// The names of the alerts below `root`.
QStringList shownAlerts(QWidget& root) {
    QStringList names;
    forEachAccessible(root, [&](QAccessibleInterface& object) {
        if (object.role() == QAccessible::AlertMessage && !object.state().invisible) {
            names << object.text(QAccessible::Name);
        }
    });
    return names;
}

/// Counts how often a widget appears.
class ShowCounter : public QObject {
public:
    explicit ShowCounter(QWidget& widget) { widget.installEventFilter(this); }
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        m_count += event->type() == QEvent::Show ? 1 : 0;
        return false;
    }

private:
    int m_count = 0;
};

/// A panel that is too low for the tiles and the log together.
class FailuresInView : public StoreFixture<MaterialStore> {
protected:
    FailuresInView() {
        store.importTexture(folder.texture(u"a.png"_s), TextureSlotKind::baseColor);
        store.importTexture(folder.texture(u"n.png"_s), TextureSlotKind::normal);
        settle();
    }

    ViewWindow window{makePreviewPanel(store, u"photo"_s), QSize(380, 300)};
    QWidget& view = window.view();
    LogView& log = *view.findChild<LogView*>();
    QScrollArea& area = *view.findChild<QScrollArea*>();
    QScrollBar& bar = *area.verticalScrollBar();

    bool showsNewestLine() const {
        const QRect end = log.cursorRect(endOfLog());
        const QRect shown(log.mapTo(area.viewport(), end.topLeft()), end.size());
        return area.viewport()->rect().contains(shown);
    }

    void failToLoad() {
        store.importTexture(folder.noTexture(u"b.png"_s), TextureSlotKind::occlusion);
        settle();
    }

private:
    QTextCursor endOfLog() const {
        QTextCursor end(log.document());
        end.movePosition(QTextCursor::End);
        return end;
    }
};

TEST_F(FailuresInView, LeaveThePanelAloneWithoutAFailure) {
    ASSERT_GT(bar.maximum(), 0);
    EXPECT_EQ(bar.value(), 0);
    EXPECT_FALSE(showsNewestLine());
    store.buildPreview();
    settle();
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(FailuresInView, BringTheLineOfAFailedLoadIntoView) {
    failToLoad();
    EXPECT_TRUE(showsNewestLine());
}

TEST_F(FailuresInView, BringTheLineOfAFailedExportIntoView) {
    chooser.folder = folder.blocked();
    store.exportMaterialSet();
    settle();
    EXPECT_TRUE(showsNewestLine());
}

TEST_F(FailuresInView, BringTheLineOfABlockedExportIntoView) {
    store.removeTexture(TextureSlotKind::baseColor);
    view.resize(380, 150);
    settle();
    bar.setValue(0);
    store.exportMaterialSet();
    settle();
    EXPECT_TRUE(showsNewestLine());
}

TEST_F(FailuresInView, StayAtTheEndWithTheLinesThatFollow) {
    failToLoad();
    for (int line = 0; line < 5; ++line) {
        store.buildPreview();
        settle();
        EXPECT_TRUE(showsNewestLine()) << line;
    }
}

TEST_F(FailuresInView, LeaveThePanelAloneOnceTheUserHasScrolledUp) {
    failToLoad();
    bar.setValue(10);
    store.buildPreview();
    settle();
    EXPECT_EQ(bar.value(), 10);
}

TEST_F(FailuresInView, StayAtTheEndOfAPanelThatBecomesLower) {
    failToLoad();
    view.resize(380, 240);
    settle();
    EXPECT_TRUE(showsNewestLine());
}

TEST_F(FailuresInView, AppearAsAlertsToAssistiveTechnology) {
    EXPECT_EQ(shownAlerts(view), QStringList());
    failToLoad();
    EXPECT_EQ(shownAlerts(view), QStringList{u"Load failed: Could not read image: b.png"_s});
    store.buildPreview();
    settle();
    EXPECT_EQ(shownAlerts(view), QStringList());
}

TEST_F(FailuresInView, AppearAgainWhenTheyAreRepeated) {
    failToLoad();
    ShowCounter appearances(*view.findChild<FailureAlert*>());
    failToLoad();
    EXPECT_EQ(appearances.count(), 1);
    store.buildPreview();
    settle();
    EXPECT_EQ(appearances.count(), 1);
}

}  // namespace
