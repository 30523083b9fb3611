#include "ui/window/busy_pointer.h"

#include "stores/tool_store.h"

#include <QCursor>
#include <QGuiApplication>

namespace quarlin {

BusyPointer::BusyPointer(const ToolStore& store, QObject* parent) : QObject(parent) {
    connect(&store, &ToolStore::workStarted, this,
            [] { QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor)); });
    connect(&store, &ToolStore::workFinished, this, &QGuiApplication::restoreOverrideCursor);
}

}  // namespace quarlin
