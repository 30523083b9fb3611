#include "ui/style/colors.h"

namespace quarlin {

namespace {

QColor towardsText(const QPalette& palette, double part) {
    return mixed(palette.color(QPalette::Active, QPalette::Window),
                 palette.color(QPalette::Active, QPalette::WindowText), part);
}

}  // namespace

QColor accentColor(const QPalette& palette) { return palette.color(QPalette::Active, QPalette::Highlight); }

QColor ringColor(const QPalette& palette) { return mixed(accentColor(palette), primaryColor(palette), 0.15); }

QColor onAccentColor(const QPalette& palette) {
    return palette.color(QPalette::Active, QPalette::HighlightedText);
}

QColor primaryColor(const QPalette& palette) { return palette.color(QPalette::Active, QPalette::WindowText); }

QColor secondaryColor(const QPalette& palette) { return towardsText(palette, 0.66); }

QColor tertiaryColor(const QPalette& palette) { return towardsText(palette, 0.4); }

QColor disabledColor(const QPalette& palette) { return towardsText(palette, 0.36); }

QColor separatorColor(const QPalette& palette) { return towardsText(palette, 0.16); }

QColor barColor(const QPalette& palette) { return towardsText(palette, 0.035); }

QColor withOpacity(QColor color, double opacity) {
    color.setAlphaF(static_cast<float>(opacity));
    return color;
}

QColor mixed(const QColor& from, const QColor& to, double part) {
    const auto channel = [part](int a, int b) { return qRound(a + (b - a) * part); };
    return {channel(from.red(), to.red()), channel(from.green(), to.green()),
            channel(from.blue(), to.blue())};
}

}  // namespace quarlin
