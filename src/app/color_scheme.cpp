#include "app/color_scheme.h"

#include "ui/style/palettes.h"

#include <QApplication>
#include <QPalette>

namespace quarlin {

namespace {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

}  // namespace

void applyColorScheme(ColorScheme scheme) {
    // An empty palette means the platform's.
    QApplication::setPalette(QPalette());
    const bool platformIsDark = isDark(QApplication::palette());
    if (scheme == ColorScheme::dark && !platformIsDark) {
        QApplication::setPalette(darkPalette());
    } else if (scheme == ColorScheme::light && platformIsDark) {
        QApplication::setPalette(lightPalette());
    }
}

}  // namespace quarlin
