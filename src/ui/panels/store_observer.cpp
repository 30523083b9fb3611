#include "ui/panels/store_observer.h"

#include "stores/tool_store.h"

#include <QMetaObject>

#include <utility>

namespace quarlin {

StoreObserver::StoreObserver(const ToolStore& store, std::function<void()> redraw, QObject* view)
    : QObject(view), m_redraw(std::move(redraw)) {
    connect(&store, &ToolStore::willChange, this, &StoreObserver::redrawLater);
    m_redraw();
}

void StoreObserver::redrawLater() {
    if (std::exchange(m_pending, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_pending = false;
            m_redraw();
        },
        Qt::QueuedConnection);
}

}  // namespace quarlin
