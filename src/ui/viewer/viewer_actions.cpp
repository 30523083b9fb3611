#include "ui/viewer/viewer_actions.h"

#include <QActionGroup>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

ToolAction::Looks looks(const QString& text, const QKeySequence& key, const QString& symbol) {
    return {.menuText = text,
            .shortcut = key,
            .toolBar = {symbol},
            .toolTip = text + u" ("_s + key.toString(QKeySequence::NativeText) + u')',
            .panel = {}};
}

}  // namespace

ViewerActions::ViewerActions(QObject* parent)
    : QObject(parent),
      previous(looks(u"Previous Map"_s, Qt::Key_PageUp, u"chevron.left"_s)),
      next(looks(u"Next Map"_s, Qt::Key_PageDown, u"chevron.right"_s)),
      zoomIn(looks(u"Zoom In"_s, Qt::Key_Plus, u"plus.magnifyingglass"_s)),
      zoomOut(looks(u"Zoom Out"_s, Qt::Key_Minus, u"minus.magnifyingglass"_s)),
      fit(looks(u"Fit"_s, Qt::Key_F, u"arrow.up.left.and.arrow.down.right"_s)),
      showPixels(looks(u"100 %"_s, Qt::Key_1, u"1.magnifyingglass"_s)) {
    // The key of the plus sign without Shift, on most keyboards.
    zoomIn.setShortcuts({Qt::Key_Plus, Qt::Key_Equal, Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal});
    zoomOut.setShortcuts({Qt::Key_Minus, Qt::CTRL | Qt::Key_Minus});
    fit.setShortcuts({Qt::Key_F, Qt::CTRL | Qt::Key_0});
    showPixels.setShortcuts({Qt::Key_1, Qt::CTRL | Qt::Key_1});

    auto* group = new QActionGroup(this);
    addChannel(u"Colors"_s, Qt::Key_C);
    addChannel(u"Red Channel"_s, Qt::Key_R);
    addChannel(u"Green Channel"_s, Qt::Key_G);
    addChannel(u"Blue Channel"_s, Qt::Key_B);
    addChannel(u"Alpha Channel"_s, Qt::Key_A);
    for (QAction* action : m_channels) {
        group->addAction(action);
    }
    m_channels.front()->setChecked(true);

    tile.setText(u"Tile 3 x 3"_s);
    tile.setShortcut(Qt::Key_T);
    tile.setCheckable(true);
    flip.setText(u"Green After Flip"_s);
    flip.setShortcut(Qt::Key_X);
    flip.setCheckable(true);

    addGroup({&zoomIn, &zoomOut, &fit, &showPixels});
    addGroup(QList<QAction*>(m_channels.begin(), m_channels.end()));
    addGroup({&tile, &flip});
    addGroup({&previous, &next});
    addGroup({&close});
}

void ViewerActions::addChannel(const QString& text, Qt::Key key) {
    auto* action = new QAction(text, this);
    action->setShortcut(key);
    action->setCheckable(true);
    connect(action, &QAction::toggled, this, [this](bool isChosen) {
        if (isChosen) {
            Q_EMIT channelChanged();
        }
    });
    m_channels.push_back(action);
}

std::optional<TextureChannel> ViewerActions::channel() const {
    for (std::size_t index = 1; index < m_channels.size(); ++index) {
        if (m_channels[index]->isChecked()) {
            return allCases<TextureChannel>()[index - 1];
        }
    }
    return std::nullopt;
}

QString ViewerActions::channelText() const {
    return m_channels.front()->actionGroup()->checkedAction()->text();
}

void ViewerActions::addGroup(const QList<QAction*>& group) {
    if (!m_all.isEmpty()) {
        auto* line = new QAction(this);
        line->setSeparator(true);
        m_all += line;
    }
    m_all += group;
}

}  // namespace quarlin
