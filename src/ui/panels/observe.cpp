#include "ui/panels/observe.h"

#include "stores/tool_store.h"

#include <QMetaObject>

#include <memory>
#include <utility>

namespace quarlin {

void observe(QObject* view, const ToolStore& store, std::function<void()> redraw) {
    redraw();
    const auto isPending = std::make_shared<bool>(false);
    // The store announces a change before it makes it, so the view is redrawn later.
    QObject::connect(&store, &ToolStore::willChange, view, [view, redraw = std::move(redraw), isPending] {
        if (std::exchange(*isPending, true)) {
            return;
        }
        const auto redrawNow = [redraw, isPending] {
            *isPending = false;
            redraw();
        };
        QMetaObject::invokeMethod(view, redrawNow, Qt::QueuedConnection);
    });
}

}  // namespace quarlin
