#include "model/texture_slot_kind.h"
#include "ui/controls/link_button.h"
#include "ui/controls/name_field.h"
#include "ui/panels/texture_card.h"
#include "window_fixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QCheckBox>
#include <QMessageBox>
#include <QSet>
#include <QSplitter>
#include <QTextEdit>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MainWindowTest : public WindowFixture {
protected:
    QAction& exportEntry = materialEntry(u"Export PBR Set..."_s);
    QAction& buildEntry = materialEntry(u"Build Preview"_s);
    QAction& resetEntry = materialEntry(u"Reset Inputs"_s);

    QList<bool> enabledEntries() const {
        return {exportEntry.isEnabled(), buildEntry.isEnabled(), resetEntry.isEnabled()};
    }
    QList<bool> enabledButtons() const {
        QList<bool> enabled;
        for (const Button* button : toolBarButtons()) {
            enabled << button->isEnabled();
        }
        return enabled;
    }
    QString headerTitle() const { return child<TextLabel>(window, u"toolTitle"_s).text(); }
};

TEST_F(MainWindowTest, IsTitledAndNeverTooSmall) {
    EXPECT_EQ(window.windowTitle(), u"VOREK TECH Quarlin"_s);
    window.resize(10, 10);
    settle();
    EXPECT_EQ(window.content()->size(), QSize(1120, 720));
    EXPECT_LE(window.content()->minimumSizeHint().width(), 1120);
    EXPECT_LE(window.content()->minimumSizeHint().height(), 720);
}

/// The letter that is underlined in a text; null if there is none.
QChar mnemonic(const QString& text) {
    const QKeySequence keys = QKeySequence::mnemonic(text);
    return keys.isEmpty() ? QChar() : QChar(keys[0].key());
}

TEST_F(MainWindowTest, OpensAMenuOrAButtonWithEachUnderlinedLetter) {
    load(TextureSlotKind::baseColor);
    loadSource();
    for (const StudioTool tool : allCases<StudioTool>()) {
        showTool(tool);
        QString letters;
        for (const QAction* menu : window.menuBar()->actions()) {
            letters += mnemonic(menu->text());
        }
        for (const QAbstractButton* button : page().findChildren<QAbstractButton*>()) {
            if (const QChar letter = mnemonic(button->text()); !letter.isNull()) {
                letters += letter;
            }
        }
        EXPECT_EQ(letters.size(), 8) << letters.toStdString();
        EXPECT_EQ(QSet<QChar>(letters.begin(), letters.end()).size(), letters.size())
            << letters.toStdString();
    }
}

TEST_F(MainWindowTest, StartsWithTheIdealWidthsAsFarAsTheyFit) {
    for (const StudioTool tool : allCases<StudioTool>()) {
        showTool(tool);
        EXPECT_EQ(static_cast<QSplitter&>(page()).sizes(), QList<int>({320, 435, 363}));
    }
}

TEST_F(MainWindowTest, ShowsThePbrToolFirst) {
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::pbr);
    EXPECT_EQ(headerTitle(), u"PBR Material"_s);
    EXPECT_TRUE(shows(window, u"VOREK TECH"_s));
    EXPECT_TRUE(shows(window, u"Textures"_s));
    EXPECT_FALSE(shows(window, u"Map Source"_s));
    ASSERT_EQ(tabs.count(), 2);
    EXPECT_EQ(tabs.tabText(0), u"PBR Material"_s);
    EXPECT_EQ(tabs.tabText(1), u"Map Generator"_s);
}

TEST_F(MainWindowTest, ListsTheMaterialMenuWithItsShortcuts) {
    const QList<QAction*> entries = exportEntry.associatedObjects().isEmpty()
                                        ? QList<QAction*>()
                                        : qobject_cast<QMenu*>(exportEntry.associatedObjects()[0])->actions();
    ASSERT_EQ(entries.size(), 4);
    EXPECT_EQ(entries[0], &exportEntry);
    EXPECT_EQ(entries[1], &buildEntry);
    EXPECT_TRUE(entries[2]->isSeparator());
    EXPECT_EQ(entries[3], &resetEntry);
    EXPECT_EQ(exportEntry.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_E));
    EXPECT_EQ(buildEntry.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_R));
    EXPECT_EQ(resetEntry.shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Backspace));
}

TEST_F(MainWindowTest, EnablesTheMaterialMenuWithTheTextures) {
    EXPECT_EQ(enabledEntries(), QList<bool>({false, false, false}));
    load(TextureSlotKind::normal);
    EXPECT_EQ(enabledEntries(), QList<bool>({false, true, true}));
    load(TextureSlotKind::baseColor);
    EXPECT_EQ(enabledEntries(), QList<bool>({true, true, true}));
    materials.removeTexture(TextureSlotKind::baseColor);
    settle();
    EXPECT_EQ(enabledEntries(), QList<bool>({false, true, true}));
    materials.reset();
    settle();
    EXPECT_EQ(enabledEntries(), QList<bool>({false, false, false}));
}

TEST_F(MainWindowTest, ActsOnTheMaterialWhicheverToolShows) {
    load(TextureSlotKind::baseColor);
    loadSource();
    showTool(StudioTool::normalGenerator);
    const QStringList mapsLog = maps.logLines();
    const qsizetype lines = materials.logLines().size();
    press(window, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(materials.logLines().size(), lines + 1);
    press(window, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(chooser.folderQuestions.size(), 1U);
    press(window, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(materials.logLines(), QStringList{u"Inputs cleared."_s});
    EXPECT_TRUE(maps.canExport());
    EXPECT_EQ(maps.logLines(), mapsLog);
}

TEST_F(MainWindowTest, ChangesTheToolbarWithTheTool) {
    const auto toolTips = [&] {
        QStringList tips;
        for (const Button* button : toolBarButtons()) {
            tips << button->text() << button->symbol() << button->toolTip();
        }
        return tips;
    };
    const QString build = u"Build Preview"_s;
    const QString buildSymbol = u"arrow.triangle.2.circlepath"_s;
    const QString exportText = u"Export"_s;
    const QString exportSymbol = u"square.and.arrow.up"_s;
    EXPECT_EQ(toolTips(), QStringList({build, buildSymbol, u"Build PBR Preview"_s, exportText, exportSymbol,
                                       u"Export PBR Set"_s}));
    showTool(StudioTool::normalGenerator);
    EXPECT_EQ(toolTips(), QStringList({build, buildSymbol, u"Build Generated Map Preview"_s, exportText,
                                       exportSymbol, u"Export Generated Map Set"_s}));
    EXPECT_EQ(headerTitle(), u"Map Generator"_s);
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::normalGenerator);
}

TEST_F(MainWindowTest, EnablesTheToolbarOfEachToolByItsOwnRule) {
    EXPECT_EQ(enabledButtons(), QList<bool>({false, false}));
    load(TextureSlotKind::occlusion);
    EXPECT_EQ(enabledButtons(), QList<bool>({true, false}));
    load(TextureSlotKind::baseColor);
    EXPECT_EQ(enabledButtons(), QList<bool>({true, true}));
    showTool(StudioTool::normalGenerator);
    EXPECT_EQ(enabledButtons(), QList<bool>({false, false}));
    loadSource();
    EXPECT_EQ(enabledButtons(), QList<bool>({true, true}));
}

TEST_F(MainWindowTest, RunsTheToolbarsActionsOnTheShownTool) {
    load(TextureSlotKind::baseColor);
    loadSource();
    qsizetype lines = materials.logLines().size();
    click(*toolBarButtons()[0]);
    EXPECT_EQ(materials.logLines().size(), lines + 1);
    click(*toolBarButtons()[1]);
    EXPECT_EQ(chooser.folderQuestions.size(), 1U);
    showTool(StudioTool::normalGenerator);
    lines = maps.logLines().size();
    click(*toolBarButtons()[0]);
    EXPECT_EQ(maps.logLines().size(), lines + 1);
    click(*toolBarButtons()[1]);
    EXPECT_EQ(chooser.folderQuestions.size(), 2U);
}

TEST_F(MainWindowTest, KeepsEverythingWhileToolsAreSwitched) {
    load(TextureSlotKind::baseColor, u"Brick.png"_s);
    loadSource(u"Stone.png"_s);
    click(withText<QCheckBox>(page(), u"Write notes"_s));
    showTool(StudioTool::normalGenerator);
    click(withText<QCheckBox>(page(), u"Invert height"_s));
    showTool(StudioTool::pbr);
    EXPECT_FALSE(materials.settings().exportNotes);
    EXPECT_FALSE(withText<QCheckBox>(page(), u"Write notes"_s).isChecked());
    EXPECT_TRUE(shows(page(), u"Brick.png"_s));
    showTool(StudioTool::normalGenerator);
    EXPECT_TRUE(withText<QCheckBox>(page(), u"Invert height"_s).isChecked());
    EXPECT_TRUE(shows(page(), u"Stone.png"_s));
    EXPECT_EQ(materials.settings().materialName, u"Brick"_s);
    EXPECT_EQ(maps.settings().materialName, u"Stone"_s);
}

TEST_F(MainWindowTest, SwitchesToolsWithTheArrowKeys) {
    tabs.setFocus(Qt::TabFocusReason);
    press(tabs, Qt::Key_Right);
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::normalGenerator);
    press(tabs, Qt::Key_Left);
    EXPECT_EQ(window.content()->selectedTool(), StudioTool::pbr);
}

TEST_F(MainWindowTest, DeletesAWordInTheNameRatherThanResetting) {
    load(TextureSlotKind::baseColor);
    auto& name = *page().findChild<NameField*>();
    name.setFocus();
    name.selectAll();
    QTest::keyClicks(&name, u"Red Brick"_s);
    press(name, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(name.text(), u"Red "_s);
    press(name, Qt::Key_Backspace, Qt::ControlModifier);
    press(name, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(name.text(), QString());
    EXPECT_TRUE(materials.hasAnyTexture());
}

TEST_F(MainWindowTest, ExportsByItsShortcutFromTheNameToo) {
    load(TextureSlotKind::baseColor);
    auto& name = *page().findChild<NameField*>();
    name.setFocus();
    press(name, Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(chooser.folderQuestions.size(), 1U);
}

TEST_F(MainWindowTest, ResetsByItsShortcutOutsideOfText) {
    load(TextureSlotKind::baseColor);
    withText<QCheckBox>(page(), u"Write notes"_s).setFocus(Qt::TabFocusReason);
    press(*QApplication::focusWidget(), Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_FALSE(materials.hasAnyTexture());
}

TEST_F(MainWindowTest, IgnoresShortcutsOfDisabledEntries) {
    const QStringList before = materials.logLines();
    press(window, Qt::Key_E, Qt::ControlModifier);
    press(window, Qt::Key_R, Qt::ControlModifier);
    press(window, Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(materials.logLines(), before);
}

TEST_F(MainWindowTest, TellsOfItselfInItsAboutBox) {
    entry(u"Help"_s, u"About Quarlin"_s).trigger();
    settle();
    auto* box = window.findChild<QMessageBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(box->isVisible());
    EXPECT_TRUE(box->text().contains(u"VOREK TECH Quarlin"_s));
    box->close();
    settle();
}

TEST_F(MainWindowTest, ClosesOnQuit) {
    entry(u"File"_s, u"Quit"_s).trigger();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(MainWindowTest, NamesEveryControlThatTakesTheKeyboard) {
    load(TextureSlotKind::baseColor);
    loadSource();
    for (const StudioTool tool : allCases<StudioTool>()) {
        showTool(tool);
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                widget->focusProxy() == nullptr) {
                QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
                ASSERT_NE(accessible, nullptr);
                EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
                    << widget->metaObject()->className();
                EXPECT_NE(accessible->role(), QAccessible::NoRole) << widget->metaObject()->className();
                EXPECT_NE(accessible->role(), QAccessible::Client) << widget->metaObject()->className();
            }
        }
    }
}

TEST_F(MainWindowTest, IsWalkedThroughInReadingOrder) {
    load(TextureSlotKind::baseColor);
    QWidget* first = toolBarButtons()[0];
    first->setFocus(Qt::TabFocusReason);
    QList<QRect> places;
    do {
        QWidget* focused = QApplication::focusWidget();
        places << QRect(focused->mapTo(&window, QPoint()), focused->size());
        press(*focused, Qt::Key_Tab);
    } while (QApplication::focusWidget() != first && places.size() < 60);
    ASSERT_GT(places.size(), 20);
    // First the bar at the top and the tabs, then column after column, each from top to bottom.
    const auto column = [](const QRect& place) {
        return place.top() < 100 ? 0 : place.left() < 320 ? 1 : place.left() < 755 ? 2 : 3;
    };
    for (qsizetype index = 1; index < places.size(); ++index) {
        const QRect& from = places[index - 1];
        const QRect& to = places[index];
        EXPECT_LE(column(from), column(to)) << index;
        if (column(from) == column(to)) {
            EXPECT_TRUE(to.bottom() > from.top()) << index;
        }
    }
    EXPECT_EQ(column(places.constLast()), 3);
}

TEST_F(MainWindowTest, LogsAFailedLoadAndAFailedExportWhereTheyCanBeRead) {
    load(TextureSlotKind::baseColor);
    materials.importTexture(folder.noTexture(u"b.png"_s), TextureSlotKind::normal);
    chooser.folder = folder.blocked();
    click(*toolBarButtons()[1]);
    const QString text = page().findChild<QTextEdit*>()->toPlainText();
    EXPECT_TRUE(text.contains(u"Load failed: Could not read image: b.png"_s));
    EXPECT_TRUE(text.contains(u"Export failed: "_s));
    EXPECT_FALSE(child<LinkButton>(page(), u"lastExport"_s).isVisible());
}

TEST_F(MainWindowTest, LoadsADropAndExportsIt) {
    auto& card = child<TextureCard>(page(), u"baseColor"_s);
    QMimeData data;
    data.setUrls({folder.texture(u"Brick.png"_s)});
    EXPECT_TRUE(dragOver(card, data));
    EXPECT_TRUE(dropOn(card, data));
    settle();
    click(withText<QAbstractButton>(page(), u"Base Size"_s));
    chooser.folder = folder.url();
    click(child<Button>(page(), u"export"_s));
    EXPECT_TRUE(QFile::exists(folder.path(u"Brick/Brick_BaseColor.png"_s)));
    EXPECT_EQ(child<LinkButton>(page(), u"lastExport"_s).text(), u"Brick"_s);
}

}  // namespace
