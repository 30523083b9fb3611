#pragma once

#include <QAction>
#include <QKeySequence>
#include <QString>

namespace quarlin {

class Button;
class MaterialStore;
class NormalGeneratorStore;
class ToolStore;
enum class ButtonStyle;

/// How an action looks on a button. A button without a text is a bare symbol, named by the action's tooltip.
struct ButtonLook {
    QString symbol;
    QString text = {};
};

/// Something that the user can do, wherever it is offered. It is enabled, and acts, the same way in every
/// place.
class ToolAction : public QAction {
    Q_OBJECT

public:
    struct Looks {
        /// In a menu.
        QString menuText = {};
        QKeySequence shortcut = {};
        /// In the toolbar, which also shows the tooltip.
        ButtonLook toolBar = {};
        QString toolTip = {};
        /// In the panels of its tool.
        ButtonLook panel = {};
    };

    explicit ToolAction(const Looks& looks);

    Button* makeToolBarButton();
    Button* makePanelButton(ButtonStyle style);

    /// Marks the buttons of the action, for the reason `reason`; an empty one removes the marks.
    void setMark(const QString& reason);

Q_SIGNALS:
    void markChanged(const QString& reason);

private:
    Button* makeButton(const ButtonLook& look, ButtonStyle style);

    ButtonLook m_toolBar;
    ButtonLook m_panel;
    QString m_mark;
};

/// The actions of a tool. Each is declared here, and the menu, the toolbar and the panels take it from here.
class ToolActions {
public:
    /// `store` must outlive the actions, and the actions the views that use them.
    explicit ToolActions(MaterialStore& store);
    explicit ToolActions(NormalGeneratorStore& store);

    ToolAction preview;
    ToolAction exportSet;
    ToolAction reset;
    ToolAction openExport;
};

/// What the mark of outdated previews means.
QString outdatedPreviewsText();

}  // namespace quarlin
