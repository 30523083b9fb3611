#include "log_view.h"
#include "name_field.h"
#include "window_fixture.h"

#include <QClipboard>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class EditMenuTest : public WindowFixture {
protected:
    EditMenuTest() { QApplication::clipboard()->clear(); }

    NameField& name = *page().findChild<NameField*>();
    LogView& log = *page().findChild<LogView*>();

    QAction& edit(const char* text) const { return entry(QStringLiteral("Edit"), QString::fromLatin1(text)); }
    /// Opens the menu and chooses an entry of it.
    void choose(const char* text) const {
        EXPECT_TRUE(usable().contains(QString::fromLatin1(text))) << text;
        edit(text).trigger();
    }

    /// The entries that can be used once the menu is opened.
    QStringList usable() const {
        auto* menu = qobject_cast<QMenu*>(edit("Copy").associatedObjects().constFirst());
        Q_EMIT menu->aboutToShow();
        QStringList texts;
        for (const QAction* action : menu->actions()) {
            if (!action->isSeparator() && action->isEnabled()) {
                texts << plain(action->text());
            }
        }
        return texts;
    }
};

TEST_F(EditMenuTest, OffersNothingOutsideOfText) {
    tabs.setFocus();
    EXPECT_EQ(usable(), QStringList());
}

TEST_F(EditMenuTest, OffersWhatTheNameAllows) {
    name.setFocus();
    name.deselect();
    EXPECT_EQ(usable(), QStringList{QStringLiteral("Select All")});
    choose("Select All");
    EXPECT_EQ(name.selectedText(), name.text());
    EXPECT_EQ(usable(),
              QStringList({QStringLiteral("Cut"), QStringLiteral("Copy"), QStringLiteral("Select All")}));
}

TEST_F(EditMenuTest, CutsPastesAndUndoesInTheName) {
    name.setFocus();
    choose("Select All");
    choose("Cut");
    EXPECT_EQ(name.text(), QString());
    EXPECT_EQ(materials.settings().materialName, QString());
    EXPECT_EQ(usable(), QStringList({QStringLiteral("Undo"), QStringLiteral("Paste")}));
    choose("Paste");
    choose("Paste");
    EXPECT_EQ(materials.settings().materialName, QStringLiteral("VOREK_PBR_MaterialVOREK_PBR_Material"));
    choose("Undo");
    settle();
    EXPECT_EQ(name.text(), materials.settings().materialName);
    EXPECT_TRUE(usable().contains(QStringLiteral("Redo")));
}

TEST_F(EditMenuTest, CopiesFromTheLog) {
    log.setFocus();
    EXPECT_EQ(usable(), QStringList{QStringLiteral("Select All")});
    choose("Select All");
    EXPECT_EQ(usable(), QStringList({QStringLiteral("Copy"), QStringLiteral("Select All")}));
    choose("Copy");
    EXPECT_EQ(QApplication::clipboard()->text(), materials.logLines().constFirst());
}

}  // namespace
