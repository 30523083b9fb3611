#pragma once

#include <QObject>

namespace quarlin {

class ToolStore;

/// Shows that the window is busy, with the pointer, while a store runs the engine.
class BusyPointer : public QObject {
    Q_OBJECT

public:
    explicit BusyPointer(const ToolStore& store, QObject* parent = nullptr);
};

}  // namespace quarlin
