#pragma once

#include <QColor>
#include <QPalette>

namespace quarlin {

// The colors of the window, all taken from the palette, so that they are right in light and in dark and
// follow the palette when it changes.

/// The color of what is active or most important.
QColor accentColor(const QPalette& palette);
/// The ring around what has the keyboard: the accent color, with enough contrast to buttons.
QColor ringColor(const QPalette& palette);
/// Text on the accent color.
QColor onAccentColor(const QPalette& palette);
/// Text and symbols.
QColor primaryColor(const QPalette& palette);
/// Text and symbols of less weight, and the tint of surfaces.
QColor secondaryColor(const QPalette& palette);
/// Fainter still.
QColor tertiaryColor(const QPalette& palette);
/// Text and symbols of controls that can't be used now.
QColor disabledColor(const QPalette& palette);
/// A line between two parts of the window.
QColor separatorColor(const QPalette& palette);
/// The background of the bar at the top.
QColor barColor(const QPalette& palette);

/// `color` at `opacity`, 0...1.
QColor withOpacity(QColor color, double opacity);
/// The color at `part`, 0...1, of the way from `from` to `to`.
QColor mixed(const QColor& from, const QColor& to, double part);

}  // namespace quarlin
