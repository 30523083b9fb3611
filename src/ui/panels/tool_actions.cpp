#include "ui/panels/tool_actions.h"

#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/controls/button.h"
#include "ui/panels/export_folder.h"
#include "ui/panels/observe.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Lets `action` call `run`, and be enabled while `isUsable` is true.
template <typename Store>
void bind(ToolAction& action, Store& store, bool (Store::*isUsable)() const, void (Store::*run)()) {
    QObject::connect(&action, &QAction::triggered, &store, run);
    observe(&action, store, [&action, &store, isUsable] { action.setEnabled((store.*isUsable)()); });
}

// What both tools have in common.
ButtonLook buildLook() { return {u"arrow.triangle.2.circlepath"_s, u"Build Preview"_s}; }
ButtonLook previewLook() { return {u"eye"_s, u"&Preview"_s}; }
ButtonLook exportLook(const QString& text) { return {u"square.and.arrow.up"_s, text}; }
ButtonLook resetLook() { return {u"trash"_s}; }

ToolAction::Looks openExportLooks() {
    return {.menuText = u"Open Export &Folder"_s, .shortcut = Qt::CTRL | Qt::SHIFT | Qt::Key_O};
}

void bindOpenExport(ToolAction& action, ToolStore& store) {
    QObject::connect(&action, &QAction::triggered, &store, [&store] { openExportFolder(store); });
    observe(&action, store, [&action, &store] { action.setEnabled(store.hasExport()); });
}

/// Marks `preview` while the previews of `store` are out of date.
template <typename Store>
void markOutdated(ToolAction& preview, const Store& store) {
    observe(&preview, store, [&preview, &store] {
        preview.setMark(store.hasOutdatedPreviews() ? outdatedPreviewsText() : QString());
    });
}

}  // namespace

ToolActions::ToolActions(MaterialStore& store)
    : preview({.menuText = u"&Build Preview"_s,
               .shortcut = Qt::CTRL | Qt::Key_R,
               .toolBar = buildLook(),
               .toolTip = u"Build PBR Preview"_s,
               .panel = previewLook()}),
      exportSet({.menuText = u"&Export PBR Set..."_s,
                 .shortcut = Qt::CTRL | Qt::Key_E,
                 .toolBar = exportLook(u"Export"_s),
                 .toolTip = u"Export PBR Set"_s,
                 .panel = exportLook(u"E&xport"_s)}),
      reset({.menuText = u"&Reset Inputs"_s,
             .shortcut = Qt::CTRL | Qt::Key_Backspace,
             .toolTip = u"Reset Inputs"_s,
             .panel = resetLook()}),
      openExport(openExportLooks()) {
    bind(preview, store, &MaterialStore::hasAnyTexture, &MaterialStore::buildPreview);
    bind(exportSet, store, &MaterialStore::canExport, &MaterialStore::exportMaterialSet);
    bind(reset, store, &MaterialStore::hasAnyTexture, &MaterialStore::reset);
    bindOpenExport(openExport, store);
    markOutdated(preview, store);
}

// A source is all that any of these needs, the preview included.
ToolActions::ToolActions(NormalGeneratorStore& store)
    : preview({.menuText = u"&Build Preview"_s,
               .shortcut = Qt::CTRL | Qt::SHIFT | Qt::Key_R,
               .toolBar = buildLook(),
               .toolTip = u"Build Generated Map Preview"_s,
               .panel = previewLook()}),
      exportSet({.menuText = u"&Export Map Set..."_s,
                 .shortcut = Qt::CTRL | Qt::SHIFT | Qt::Key_E,
                 .toolBar = exportLook(u"Export"_s),
                 .toolTip = u"Export Generated Map Set"_s,
                 .panel = exportLook(u"E&xport"_s)}),
      reset({.menuText = u"&Reset Input"_s,
             .shortcut = Qt::CTRL | Qt::SHIFT | Qt::Key_Backspace,
             .toolTip = u"Reset Input"_s,
             .panel = resetLook()}),
      openExport(openExportLooks()) {
    bind(preview, store, &NormalGeneratorStore::canExport, &NormalGeneratorStore::buildPreview);
    bind(exportSet, store, &NormalGeneratorStore::canExport, &NormalGeneratorStore::exportSet);
    bind(reset, store, &NormalGeneratorStore::canExport, &NormalGeneratorStore::reset);
    bindOpenExport(openExport, store);
    markOutdated(preview, store);
}

QString outdatedPreviewsText() { return u"The previews are out of date."_s; }

ToolAction::ToolAction(const Looks& looks)
    : QAction(looks.menuText), m_toolBar(looks.toolBar), m_panel(looks.panel) {
    setShortcut(looks.shortcut);
    setToolTip(looks.toolTip);
}

Button* ToolAction::makeToolBarButton() {
    Button* button = makeButton(m_toolBar, ButtonStyle::borderless);
    button->setToolTip(toolTip());
    return button;
}

Button* ToolAction::makePanelButton(ButtonStyle style) { return makeButton(m_panel, style); }

void ToolAction::setMark(const QString& reason) {
    if (reason != m_mark) {
        m_mark = reason;
        Q_EMIT markChanged(reason);
    }
}

Button* ToolAction::makeButton(const ButtonLook& look, ButtonStyle style) {
    Button* button = look.text.isEmpty() ? Button::symbolOnly(look.symbol, toolTip())
                                         : new Button(style, look.symbol, look.text);
    if (look.text.isEmpty()) {
        // The tooltip may contain the shortcut as well.
        button->setAccessibleName(text().remove(u'&'));
    }
    button->setEnabled(isEnabled());
    connect(this, &QAction::enabledChanged, button, &Button::setEnabled);
    button->setMark(m_mark);
    connect(this, &ToolAction::markChanged, button, &Button::setMark);
    connect(button, &Button::clicked, this, &QAction::trigger);
    return button;
}

}  // namespace quarlin
