#include "ui/panels/tile_accessible.h"

#include "ui/panels/preview_tile.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace quarlin {

namespace {

/// A tile is a button: pressing it opens the viewer.
class TileAccessible : public QAccessibleWidget {
public:
    explicit TileAccessible(PreviewTile* tile)
        : QAccessibleWidget(tile, QAccessible::Button), m_tile(*tile) {}

    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override {
        if (name == pressAction()) {
            Q_EMIT m_tile.opened();
        } else {
            QAccessibleWidget::doAction(name);
        }
    }

    QStringList keyBindingsForAction(const QString& name) const override {
        return name == pressAction() ? QStringList{QKeySequence(Qt::Key_Return).toString()}
                                     : QAccessibleWidget::keyBindingsForAction(name);
    }

private:
    PreviewTile& m_tile;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* tile = qobject_cast<PreviewTile*>(object);
    return tile != nullptr ? new TileAccessible(tile) : nullptr;
}

}  // namespace

// Qt keeps a list of the factories and takes each of them once.
void installTileAccessibility() { QAccessible::installFactory(&makeAccessible); }

}  // namespace quarlin
