#pragma once

#include "ui/panels/preview_tile.h"

#include <QStringList>
#include <QUrl>
#include <QWidget>

#include <optional>
#include <vector>

namespace quarlin {

class AdaptiveGrid;
class EmptyPreview;
class FailureAlert;
class LogView;
class ScrollPanel;
class LinkButton;
class StatusDot;

/// The right-hand column of a tool: the preview tiles, the name of the last export, and the log.
class PreviewPanel : public QWidget {
    Q_OBJECT

public:
    /// `emptySymbol` is shown while there are no tiles.
    explicit PreviewPanel(const QString& emptySymbol, QWidget* parent = nullptr);

    /// Shows one tile per element, in this order, or, without any, that there is no preview.
    void setTiles(const std::vector<PreviewTileContent>& contents);

    /// Shows the name of the folder that received the last export, if there was one, as a link to it.
    void setLastExport(const std::optional<QUrl>& folder);

    /// Shows that the tiles are not what the inputs and settings would give now.
    void setOutdated(bool isOutdated);

    /// Shows the log. `lines` are newest first.
    void setLogLines(const QStringList& lines);

    /// Scrolls to the newest line of the log and announces `message`, which it reports, as an alert.
    void showFailure(const QString& message);

Q_SIGNALS:
    /// The user wants to look closely at what the tile at `index` shows.
    void tileOpened(int index);
    /// The user wants to see the folder of the last export.
    void exportFolderRequested();

private:
    StatusDot* m_outdated;
    LinkButton* m_lastExport;
    ScrollPanel* m_scroll;
    EmptyPreview* m_empty;
    QWidget* m_tiles;
    AdaptiveGrid* m_grid;
    LogView* m_log;
    FailureAlert* m_alert;
};

}  // namespace quarlin
