#pragma once

#include "app/content_view.h"
#include "app/main_window.h"
#include "model/texture_slot_kind.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/controls/button.h"
#include "ui/panels/tool_tabs.h"
#include "view_fixture.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QToolBar>

namespace quarlin::fixtures {

using namespace Qt::StringLiterals;

/// The whole window on two stores with a scripted chooser.
class WindowFixture : public testing::Test {
protected:
    WindowFixture() {
        window.resize(1120, 720);
        window.show();
        window.activateWindow();
        settle();
    }

    TextureFolder folder;
    ScriptedChooser chooser;
    MaterialStore materials{chooser, [] { return QTime(14, 3, 27); }};
    NormalGeneratorStore maps{chooser, [] { return QTime(14, 3, 27); }};
    MainWindow window{materials, maps};
    QTabBar& tabs = *window.findChild<ToolTabs*>()->tabBar();

    /// The entry of the menu bar's menus with this text, mnemonics left out.
    QAction& entry(const QString& menuTitle, const QString& text) const {
        for (const QAction* menu : window.menuBar()->actions()) {
            if (plain(menu->text()) == menuTitle) {
                for (QAction* action : menu->menu()->actions()) {
                    if (plain(action->text()) == text) {
                        return *action;
                    }
                }
            }
        }
        throw std::runtime_error("no entry " + text.toStdString());
    }

    QAction& materialEntry(const QString& text) const { return entry(u"Material"_s, text); }

    static QString plain(QString text) { return text.remove(u'&'); }

    /// The buttons of the toolbar that can be seen.
    QList<Button*> toolBarButtons() const {
        QList<Button*> buttons;
        for (Button* button : window.findChild<QToolBar*>()->findChildren<Button*>()) {
            if (button->isVisible()) {
                buttons << button;
            }
        }
        return buttons;
    }

    /// What shows the selected tool.
    QWidget& page() const { return *window.findChild<ToolTabs*>()->currentWidget(); }

    void showTool(StudioTool tool) {
        const int index = static_cast<int>(tool);
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(index).center());
        settle();
    }

    void load(TextureSlotKind kind, const QString& name = u"a.png"_s) {
        materials.importTexture(folder.texture(name), kind);
        settle();
    }

    void loadSource(const QString& name = u"s.png"_s) {
        maps.importSourceTexture(folder.texture(name));
        settle();
    }
};

}  // namespace quarlin::fixtures
