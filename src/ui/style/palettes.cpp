#include "ui/style/palettes.h"

namespace quarlin {

namespace {

/// The colors that a palette is made of.
struct Shades {
    QRgb window, text, base, button, accent;
};

constexpr Shades lightShades{0xffefefef, 0xff1d1d1f, 0xffffffff, 0xfffbfbfb, 0xff2a6fdb};
constexpr Shades darkShades{0xff242528, 0xfff2f2f4, 0xff1a1b1d, 0xff3a3c40, 0xff3f82ee};

QPalette paletteOf(const Shades& shades) {
    // The constructor derives from these two what only Fusion uses.
    QPalette palette{QColor(shades.button), QColor(shades.window)};
    const QColor text(shades.text);
    QColor faint = text;
    faint.setAlpha(110);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::Window, QColor(shades.window));
    palette.setColor(QPalette::Base, QColor(shades.base));
    palette.setColor(QPalette::AlternateBase, QColor(shades.window));
    palette.setColor(QPalette::Button, QColor(shades.button));
    palette.setColor(QPalette::ToolTipBase, QColor(shades.base));
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, QColor(shades.accent));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(shades.accent));
    return palette;
}

}  // namespace

QPalette lightPalette() { return paletteOf(lightShades); }

QPalette darkPalette() { return paletteOf(darkShades); }

}  // namespace quarlin
