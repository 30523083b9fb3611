#pragma once

#include <QObject>

#include <functional>

namespace quarlin {

class ToolStore;

/// Redraws a view from its store: once now, and once after any number of changes that the store announces
/// while control is away from the event loop.
class StoreObserver : public QObject {
    Q_OBJECT

public:
    /// `redraw` reads the store and is called as long as `view`, which becomes the parent, lives.
    StoreObserver(const ToolStore& store, std::function<void()> redraw, QObject* view);

private:
    void redrawLater();

    std::function<void()> m_redraw;
    bool m_pending = false;
};

}  // namespace quarlin
