#include "ui/controls/name_field.h"
#include "ui/panels/log_view.h"
#include "window_fixture.h"

#include <QClipboard>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class EditMenuTest : public WindowFixture {
protected:
    EditMenuTest() { QApplication::clipboard()->clear(); }

    NameField& name = *page().findChild<NameField*>();
    LogView& log = *page().findChild<LogView*>();

    QAction& edit(const char* text) const { return entry(u"Edit"_s, QString::fromLatin1(text)); }
    /// Opens the menu and chooses an entry of it.
    void choose(const char* text) const {
        EXPECT_TRUE(usable().contains(QString::fromLatin1(text))) << text;
        edit(text).trigger();
    }

    /// The entries that are enabled when the menu opens.
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
    EXPECT_EQ(usable(), QStringList{u"Select All"_s});
    choose("Select All");
    EXPECT_EQ(name.selectedText(), name.text());
    EXPECT_EQ(usable(), QStringList({u"Cut"_s, u"Copy"_s, u"Select All"_s}));
}

TEST_F(EditMenuTest, CutsPastesAndUndoesInTheName) {
    name.setFocus();
    choose("Select All");
    choose("Cut");
    EXPECT_EQ(name.text(), QString());
    EXPECT_EQ(materials.settings().materialName, QString());
    EXPECT_EQ(usable(), QStringList({u"Undo"_s, u"Paste"_s}));
    choose("Paste");
    choose("Paste");
    EXPECT_EQ(materials.settings().materialName, u"VOREK_PBR_MaterialVOREK_PBR_Material"_s);
    choose("Undo");
    settle();
    EXPECT_EQ(name.text(), materials.settings().materialName);
    EXPECT_TRUE(usable().contains(u"Redo"_s));
}

TEST_F(EditMenuTest, CopiesFromTheLog) {
    log.setFocus();
    EXPECT_EQ(usable(), QStringList{u"Select All"_s});
    choose("Select All");
    EXPECT_EQ(usable(), QStringList({u"Copy"_s, u"Select All"_s}));
    choose("Copy");
    EXPECT_EQ(QApplication::clipboard()->text(), materials.logLines().constFirst());
}

}  // namespace
