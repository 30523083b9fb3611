#pragma once

#include "model/texture_slot_kind.h"
#include "ui/panels/tool_actions.h"

#include <QAction>
#include <QList>

#include <optional>
#include <vector>

namespace quarlin {

/// What can be done in the viewer. Its bar, its context menu and its keys take the actions from here.
class ViewerActions : public QObject {
    Q_OBJECT

public:
    explicit ViewerActions(QObject* parent = nullptr);

    ToolAction previous;
    ToolAction next;
    ToolAction zoomIn;
    ToolAction zoomOut;
    ToolAction fit;
    ToolAction showPixels;
    /// Checkable: the map is shown as tiles.
    QAction tile;
    /// Checkable: the green of normals is flipped.
    QAction flip;
    /// Set up by the window that it closes.
    QAction close;

    /// One of them is checked: the colors, then a channel each, in the order of `TextureChannel`.
    const std::vector<QAction*>& channels() const { return m_channels; }
    std::optional<TextureChannel> channel() const;
    /// The name of what is checked.
    QString channelText() const;

    /// All of them, in groups, as for a menu.
    const QList<QAction*>& all() const { return m_all; }

Q_SIGNALS:
    void channelChanged();

private:
    void addChannel(const QString& text, Qt::Key key);
    void addGroup(const QList<QAction*>& group);

    std::vector<QAction*> m_channels;
    QList<QAction*> m_all;
};

}  // namespace quarlin
