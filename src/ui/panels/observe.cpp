#include "ui/panels/observe.h"

#include "stores/tool_store.h"

#include <QMetaObject>
#include <QPointer>

#include <memory>
#include <utility>

namespace quarlin {

void observe(QObject* view, const ToolStore& store, std::function<void()> redraw) {
    redraw();
    const auto isPending = std::make_shared<bool>(false);
    const QPointer<const ToolStore> observed(&store);
    // The store announces a change before it makes it, so the view is redrawn later.
    const auto redrawLater = [view, redraw = std::move(redraw), isPending, observed] {
        if (std::exchange(*isPending, true)) {
            return;
        }
        const auto redrawNow = [redraw, isPending, observed] {
            *isPending = false;
            if (observed) {
                redraw();
            }
        };
        QMetaObject::invokeMethod(view, redrawNow, Qt::QueuedConnection);
    };
    QObject::connect(&store, &ToolStore::willChange, view, redrawLater);
}

}  // namespace quarlin
