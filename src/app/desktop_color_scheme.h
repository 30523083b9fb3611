#pragma once

#include <QObject>

#include <memory>

namespace quarlin {

/// Keeps the application in the desktop's color scheme, as long as the returned object lives, where
/// Qt does not do so by itself.
std::unique_ptr<QObject> followDesktopColorScheme();

}  // namespace quarlin
