#include "accessible_tree.h"
#include "ui/layout/adaptive_grid.h"
#include "ui/layout/scroll_panel.h"
#include "view_fixture.h"

#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QVBoxLayout>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class ScrollPanelTest : public testing::Test {
protected:
    ViewWindow window{new ScrollPanel(0, {}), QSize(200, 100)};
    ScrollPanel& panel = static_cast<ScrollPanel&>(window.view());
    QScrollBar& bar = *panel.verticalScrollBar();

    QRect handle() const {
        QStyleOptionSlider option;
        option.initFrom(&bar);
        option.orientation = bar.orientation();
        option.minimum = bar.minimum();
        option.maximum = bar.maximum();
        option.pageStep = bar.pageStep();
        option.sliderPosition = bar.sliderPosition();
        return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
    }

    void setContentHeight(int height) {
        auto* content = new QWidget;
        content->setFixedHeight(height);
        panel.rows()->addWidget(content);
        settle();
    }
};

TEST_F(ScrollPanelTest, ShowsItsBarOnlyWhenThereIsSomethingToScroll) {
    setContentHeight(50);
    EXPECT_FALSE(bar.isVisible());
    setContentHeight(200);
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(panel.viewport()->width(), 200);
}

TEST_F(ScrollPanelTest, ScrollsWithItsBar) {
    setContentHeight(400);
    const QPoint grip = handle().center();
    QTest::mousePress(&bar, Qt::LeftButton, {}, grip);
    QTest::mouseMove(&bar, grip + QPoint(0, 500));
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, grip);
    EXPECT_EQ(panel.verticalScrollBar()->value(), 300);
    click(bar, QPoint(6, 3));
    EXPECT_EQ(panel.verticalScrollBar()->value(), 200);
    panel.verticalScrollBar()->setValue(0);
    EXPECT_EQ(bar.value(), 0);
    click(bar, QPoint(6, 97));
    EXPECT_EQ(panel.verticalScrollBar()->value(), 100);
}

TEST_F(ScrollPanelTest, ContainsItsBarButNotItselfForAssistiveTechnology) {
    setContentHeight(400);
    int bars = 0;
    forEachAccessible(panel, [&](QAccessibleInterface& object) {
        bars += object.object() == &bar ? 1 : 0;
        ASSERT_LE(bars, 1);
    });
    EXPECT_EQ(bars, 1);
}

TEST(AdaptiveGrid, FitsAsManyColumnsAsTheWidthHolds) {
    AdaptiveGrid grid(140, 12);
    EXPECT_EQ(grid.columnCount(0), 1);
    EXPECT_EQ(grid.columnCount(291), 1);
    EXPECT_EQ(grid.columnCount(292), 2);
    EXPECT_EQ(grid.columnCount(443), 2);
    EXPECT_EQ(grid.columnCount(444), 3);
}

TEST(AdaptiveGrid, SpreadsItsColumnsOverTheWholeWidth) {
    QWidget owner;
    auto* grid = new AdaptiveGrid(140, 12, &owner);
    for (int index = 0; index < 5; ++index) {
        auto* item = new QWidget;
        item->setMinimumHeight(20);
        grid->addWidget(item);
    }
    grid->setGeometry(QRect(0, 0, 300, 200));
    EXPECT_EQ(grid->itemAt(0)->geometry().left(), 0);
    EXPECT_EQ(grid->itemAt(1)->geometry().right(), 299);
    EXPECT_EQ(grid->itemAt(1)->geometry().left() - grid->itemAt(0)->geometry().right() - 1, 12);
    EXPECT_EQ(grid->itemAt(2)->geometry().top(), 20 + 12);
    EXPECT_EQ(grid->heightForWidth(300), 3 * 20 + 2 * 12);
    EXPECT_EQ(grid->itemAt(5), nullptr);
}

TEST(AdaptiveGrid, MakesEveryColumnEquallyWide) {
    QWidget owner;
    auto* grid = new AdaptiveGrid(140, 12, &owner);
    for (int index = 0; index < 3; ++index) {
        grid->addWidget(new QWidget);
    }
    for (int width = 444; width < 460; ++width) {
        grid->setGeometry(QRect(0, 0, width, 100));
        EXPECT_EQ(grid->itemAt(1)->geometry().width(), grid->itemAt(0)->geometry().width()) << width;
        EXPECT_EQ(grid->itemAt(2)->geometry().width(), grid->itemAt(0)->geometry().width()) << width;
        EXPECT_EQ(grid->itemAt(2)->geometry().right(), width - 1) << width;
        EXPECT_GE(grid->itemAt(1)->geometry().left() - grid->itemAt(0)->geometry().right() - 1, 12) << width;
    }
}

}  // namespace
