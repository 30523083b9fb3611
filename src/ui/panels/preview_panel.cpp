#include "ui/panels/preview_panel.h"

#include "imaging/files/file_names.h"
#include "ui/accessibility/accessible_role.h"
#include "ui/controls/link_button.h"
#include "ui/display/status_dot.h"
#include "ui/display/text_label.h"
#include "ui/layout/adaptive_grid.h"
#include "ui/layout/scroll_panel.h"
#include "ui/layout/separator.h"
#include "ui/panels/empty_preview.h"
#include "ui/panels/failure_alert.h"
#include "ui/panels/log_view.h"
#include "ui/panels/panel_header.h"
#include "ui/panels/tool_actions.h"
#include "ui/style/metrics.h"

#include <QDir>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int rowSpacing = 14;
constexpr int minimumTileWidth = 140;
constexpr int tileSpacing = 12;

/// Lets Tab reach `widget`, which is new, right before `next`.
void placeBefore(QWidget& next, QWidget& widget) {
    QWidget* previous = next.previousInFocusChain();
    while (previous != &next && (previous->focusPolicy() == Qt::NoFocus || previous == &widget)) {
        previous = previous->previousInFocusChain();
    }
    QWidget::setTabOrder(previous, &widget);
}

}  // namespace

PreviewPanel::PreviewPanel(const QString& emptySymbol, QWidget* parent) : QWidget(parent) {
    presentAs(*this, QAccessible::Pane, u"Preview"_s);
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);

    auto* header = new PanelHeader(u"Preview"_s);
    m_outdated = new StatusDot(outdatedPreviewsText());
    m_outdated->setObjectName(u"outdated"_s);
    header->addToTitle(m_outdated);
    m_lastExport = new LinkButton;
    m_lastExport->setObjectName(u"lastExport"_s);
    connect(m_lastExport, &LinkButton::clicked, this, &PreviewPanel::exportFolderRequested);
    header->addAtEnd(m_lastExport);
    stack->addWidget(header);

    m_scroll = new ScrollPanel(
        rowSpacing, {metrics::standardPadding, 0, metrics::standardPadding, metrics::standardPadding});
    m_empty = new EmptyPreview(emptySymbol);
    m_scroll->rows()->addWidget(m_empty);
    m_tiles = new QWidget;
    m_grid = new AdaptiveGrid(minimumTileWidth, tileSpacing, m_tiles);
    m_scroll->rows()->addWidget(m_tiles);
    m_scroll->rows()->addWidget(new Separator(Qt::Horizontal));
    m_scroll->rows()->addWidget(new TextLabel(u"Log"_s, TextStyle::headline));
    m_log = new LogView;
    m_scroll->rows()->addWidget(m_log);
    m_scroll->rows()->addStretch();
    stack->addWidget(m_scroll);
    connect(m_log, &LogView::caretMoved, m_scroll,
            [this](const QRect& line) { m_scroll->showArea(*m_log, line); });
    m_alert = new FailureAlert(this);

    setTiles({});
    setOutdated(false);
    setLastExport(std::nullopt);
}

void PreviewPanel::setTiles(const std::vector<PreviewTileContent>& contents) {
    while (m_grid->count() > static_cast<int>(contents.size())) {
        const std::unique_ptr<QLayoutItem> item(m_grid->takeAt(m_grid->count() - 1));
        delete item->widget();
    }
    for (std::size_t index = 0; index < contents.size(); ++index) {
        if (QLayoutItem* item = m_grid->itemAt(static_cast<int>(index))) {
            static_cast<PreviewTile*>(item->widget())->setContent(contents[index]);
        } else {
            auto* tile = new PreviewTile(contents[index]);
            connect(tile, &PreviewTile::opened, this,
                    [this, index] { Q_EMIT tileOpened(static_cast<int>(index)); });
            m_grid->addWidget(tile);
            placeBefore(*m_log, *tile);
        }
    }
    m_empty->setVisible(contents.empty());
    m_tiles->setVisible(!contents.empty());
}

void PreviewPanel::setLastExport(const std::optional<QUrl>& folder) {
    m_lastExport->setVisible(folder.has_value());
    m_lastExport->setText(folder ? lastPathComponent(*folder) : QString());
    m_lastExport->setToolTip(folder ? QDir::toNativeSeparators(folder->toLocalFile()) : QString());
}

void PreviewPanel::setOutdated(bool isOutdated) { m_outdated->setVisible(isOutdated); }

void PreviewPanel::setLogLines(const QStringList& lines) {
    QStringList oldestFirst = lines;
    std::reverse(oldestFirst.begin(), oldestFirst.end());
    if (oldestFirst != m_log->lines()) {
        m_alert->withdraw();
    }
    m_log->setLines(oldestFirst);
}

void PreviewPanel::showFailure(const QString& message) {
    m_scroll->showEnd();
    m_alert->announce(message);
}

}  // namespace quarlin
