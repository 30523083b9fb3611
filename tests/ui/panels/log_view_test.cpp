#include "ui/panels/log_view.h"

#include "view_fixture.h"

#include <QClipboard>
#include <QTextBlock>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class LogViewTest : public testing::Test {
protected:
    ViewWindow window{new LogView, QSize(300, 100)};
    LogView& log = static_cast<LogView&>(window.view());
    const QStringList lines{u"one"_s, u"two"_s, u"three"_s};

    void select(int from, int to) {
        QTextCursor cursor = log.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        log.setTextCursor(cursor);
    }
};

TEST_F(LogViewTest, ShowsEachLineInItsOwnBlock) {
    log.setLines(lines);
    EXPECT_EQ(log.toPlainText(), u"one\ntwo\nthree"_s);
    EXPECT_EQ(log.document()->blockCount(), 3);
}

TEST_F(LogViewTest, CopiesWhatIsSelectedAcrossLines) {
    log.setLines(lines);
    QTest::keyClick(&log, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&log, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"one\ntwo\nthree"_s);
}

TEST_F(LogViewTest, CannotBeWrittenInto) {
    log.setLines(lines);
    QTest::keyClicks(&log, u"x"_s);
    QTest::keyClick(&log, Qt::Key_Backspace);
    EXPECT_EQ(log.toPlainText(), u"one\ntwo\nthree"_s);
}

TEST_F(LogViewTest, KeepsTheSelectionWhenALineIsAdded) {
    log.setLines(lines);
    select(4, 7);
    log.setLines(lines + QStringList{u"four"_s});
    EXPECT_EQ(log.textCursor().selectedText(), u"two"_s);
    EXPECT_EQ(log.document()->blockCount(), 4);
}

TEST_F(LogViewTest, KeepsTheSelectionWhenTheOldestLineGoes) {
    log.setLines(lines);
    select(4, 7);
    log.setLines({u"two"_s, u"three"_s, u"four"_s});
    EXPECT_EQ(log.toPlainText(), u"two\nthree\nfour"_s);
    EXPECT_EQ(log.textCursor().selectedText(), u"two"_s);
}

TEST_F(LogViewTest, ReplacesEverythingAfterAReset) {
    log.setLines(lines);
    log.setLines({u"Inputs cleared."_s});
    EXPECT_EQ(log.toPlainText(), u"Inputs cleared."_s);
    log.setLines({});
    EXPECT_EQ(log.toPlainText(), QString());
    log.setLines(lines);
    EXPECT_EQ(log.document()->blockCount(), 3);
}

TEST_F(LogViewTest, TakesNoLineForMarkup) {
    log.setLines({u"<b>bold</b> & more"_s});
    EXPECT_EQ(log.toPlainText(), u"<b>bold</b> & more"_s);
}

TEST_F(LogViewTest, WrapsAndGrowsWithItsText) {
    log.setLines({u"short"_s});
    const int oneLine = log.height();
    log.setLines({QString(200, u'w')});
    EXPECT_GT(log.height(), 2 * oneLine);
    log.setLines({u"short"_s});
    EXPECT_EQ(log.height(), oneLine);
}

TEST_F(LogViewTest, SetsItsLinesSixApart) {
    log.setLines({u"one"_s});
    const int oneLine = log.height();
    log.setLines(lines);
    EXPECT_NEAR(log.height(), 3 * oneLine + 2 * 6, 2);
}

}  // namespace
