#include "ui/help/help_window.h"

#include "ui/help/guide.h"
#include "view_fixture.h"

#include <QTextTable>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

TEST(Guide, IsMadeOfTheSectionsOnTheToolsAndTheFiles) {
    const QString readme =
        u"# Name\nIntroduction\n\n## Start\nBuild it.\n\n## PBR Material, step by step\n1. Drop.\n\n"
        "![Picture](a.png)\n\n## Map Generator, step by step\n1. Choose.\n\n## The command line\nText.\n\n"
        "## What is written\nA table.\n\n## Tested systems\nAll.\n"_s;
    EXPECT_EQ(guideOf(readme),
              u"# Quarlin Help\n\n## PBR Material, step by step\n1. Drop.\n\n\n"
              "## Map Generator, step by step\n1. Choose.\n\n## What is written\nA table.\n\n"_s);
}

class HelpWindowTest : public testing::Test {
protected:
    HelpWindowTest() {
        window.open();
        settle();
    }

    HelpWindow window;
};

TEST_F(HelpWindowTest, ShowsTheGuideOfTheProgram) {
    const QString text = window.toPlainText();
    for (const QString& part : {u"PBR Material, step by step"_s, u"Map Generator, step by step"_s,
                                u"What is written"_s, u"Choose an output size"_s, u"NAME_ORM.png"_s}) {
        EXPECT_TRUE(text.contains(part)) << part.toStdString();
    }
    EXPECT_FALSE(text.contains(u"./dev"_s));
    // An object replacement character stands for a picture.
    EXPECT_FALSE(text.contains(QChar::ObjectReplacementCharacter));
}

TEST_F(HelpWindowTest, ShowsTheFilesAsATable) {
    const auto frames = window.document()->rootFrame()->childFrames();
    ASSERT_EQ(frames.size(), 1);
    const auto* table = qobject_cast<QTextTable*>(frames[0]);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->columns(), 3);
    EXPECT_GT(table->rows(), 7);
}

TEST_F(HelpWindowTest, FollowsItsLinksOffline) {
    int links = 0;
    for (QTextBlock block = window.document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QString target = part.fragment().charFormat().anchorHref();
            if (!target.isEmpty()) {
                ++links;
                const QUrl location = window.source().resolved(QUrl(target));
                EXPECT_TRUE(QFile::exists(u":"_s + location.path())) << target.toStdString();
            }
        }
    }
    EXPECT_GT(links, 0);
    window.setSource(QUrl(u"qrc:/guide/docs/texture-names.md"_s));
    EXPECT_FALSE(window.toPlainText().isEmpty());
    EXPECT_TRUE(window.toPlainText().startsWith(u"Back to Quarlin Help"_s));
    window.backward();
    EXPECT_TRUE(window.toPlainText().startsWith(u"Quarlin Help"_s));
}

TEST_F(HelpWindowTest, KeepsParagraphsApart) {
    for (const char* page : {"qrc:/guide/README.md", "qrc:/guide/docs/texture-names.md"}) {
        window.setSource(QUrl(QLatin1StringView(page)));
        for (QTextBlock block = window.document()->begin(); block.isValid(); block = block.next()) {
            const QTextBlockFormat format = block.blockFormat();
            QTextCursor cursor(block);
            if (cursor.currentTable() != nullptr) {
                continue;
            }
            const bool isCode = format.hasProperty(QTextFormat::BlockCodeFence);
            const bool isLineOfCode =
                isCode && block.next().blockFormat().hasProperty(QTextFormat::BlockCodeFence);
            EXPECT_EQ(format.bottomMargin() > 0, !isLineOfCode) << block.text().toStdString();
            EXPECT_EQ(format.topMargin() > 0, format.headingLevel() > 1) << block.text().toStdString();
        }
    }
}

TEST_F(HelpWindowTest, ClosesWithEscape) {
    press(window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

}  // namespace
