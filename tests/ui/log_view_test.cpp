#include "log_view.h"

#include "view_fixture.h"

#include <QClipboard>
#include <QTextBlock>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class LogViewTest : public testing::Test {
protected:
    ViewWindow window{new LogView, QSize(300, 100)};
    LogView& log = static_cast<LogView&>(window.view());
    const QStringList lines{QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")};

    void select(int from, int to) {
        QTextCursor cursor = log.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        log.setTextCursor(cursor);
    }
};

TEST_F(LogViewTest, ShowsEachLineInItsOwnBlock) {
    log.setLines(lines);
    EXPECT_EQ(log.toPlainText(), QStringLiteral("one\ntwo\nthree"));
    EXPECT_EQ(log.document()->blockCount(), 3);
}

TEST_F(LogViewTest, CopiesWhatIsSelectedAcrossLines) {
    log.setLines(lines);
    QTest::keyClick(&log, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&log, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("one\ntwo\nthree"));
}

TEST_F(LogViewTest, CannotBeWrittenInto) {
    log.setLines(lines);
    QTest::keyClicks(&log, QStringLiteral("x"));
    QTest::keyClick(&log, Qt::Key_Backspace);
    EXPECT_EQ(log.toPlainText(), QStringLiteral("one\ntwo\nthree"));
}

TEST_F(LogViewTest, KeepsTheSelectionWhenALineIsAdded) {
    log.setLines(lines);
    select(4, 7);
    log.setLines(lines + QStringList{QStringLiteral("four")});
    EXPECT_EQ(log.textCursor().selectedText(), QStringLiteral("two"));
    EXPECT_EQ(log.document()->blockCount(), 4);
}

TEST_F(LogViewTest, KeepsTheSelectionWhenTheOldestLineGoes) {
    log.setLines(lines);
    select(4, 7);
    log.setLines({QStringLiteral("two"), QStringLiteral("three"), QStringLiteral("four")});
    EXPECT_EQ(log.toPlainText(), QStringLiteral("two\nthree\nfour"));
    EXPECT_EQ(log.textCursor().selectedText(), QStringLiteral("two"));
}

TEST_F(LogViewTest, ReplacesEverythingAfterAReset) {
    log.setLines(lines);
    log.setLines({QStringLiteral("Inputs cleared.")});
    EXPECT_EQ(log.toPlainText(), QStringLiteral("Inputs cleared."));
    log.setLines({});
    EXPECT_EQ(log.toPlainText(), QString());
    log.setLines(lines);
    EXPECT_EQ(log.document()->blockCount(), 3);
}

TEST_F(LogViewTest, TakesNoLineForMarkup) {
    log.setLines({QStringLiteral("<b>bold</b> & more")});
    EXPECT_EQ(log.toPlainText(), QStringLiteral("<b>bold</b> & more"));
}

TEST_F(LogViewTest, WrapsAndGrowsWithItsText) {
    log.setLines({QStringLiteral("short")});
    const int oneLine = log.height();
    log.setLines({QString(200, u'w')});
    EXPECT_GT(log.height(), 2 * oneLine);
    log.setLines({QStringLiteral("short")});
    EXPECT_EQ(log.height(), oneLine);
}

TEST_F(LogViewTest, SetsItsLinesSixApart) {
    log.setLines({QStringLiteral("one")});
    const int oneLine = log.height();
    log.setLines(lines);
    EXPECT_NEAR(log.height(), 3 * oneLine + 2 * 6, 2);
}

}  // namespace
