#pragma once

#include <functional>

class QObject;

namespace quarlin {

class ToolStore;

/// Calls `redraw`, which reads `store` and shows what it finds in `view`: once now, and from then on once
/// after any number of changes, when control is back in the event loop. It is not called after the end of
/// `view` or `store`.
void observe(QObject* view, const ToolStore& store, std::function<void()> redraw);

}  // namespace quarlin
