#include "test_application.h"

#include "ui/style/quarlin_style.h"

#include <QApplication>
#include <QColor>
#include <QFont>
#include <QFontInfo>
#include <QLocale>
#include <QPalette>
#include <QtGlobal>

#include <gtest/gtest.h>

#include <cstdio>

namespace quarlin::fixtures {

using namespace Qt::StringLiterals;

namespace {

struct Shades {
    QRgb window, text, base, button, accent, onAccent;
};

constexpr Shades light{0xffefefef, 0xff1d1d1f, 0xffffffff, 0xfffbfbfb, 0xff2a6fdb, 0xffffffff};
constexpr Shades dark{0xff242528, 0xfff2f2f4, 0xff1a1b1d, 0xff3a3c40, 0xff4d8ef7, 0xffffffff};

void use(const Shades& shades) {
    QPalette palette(QColor(shades.button), QColor(shades.window));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, shades.text);
    }
    palette.setColor(QPalette::Window, shades.window);
    palette.setColor(QPalette::Base, shades.base);
    palette.setColor(QPalette::Button, shades.button);
    palette.setColor(QPalette::Highlight, shades.accent);
    palette.setColor(QPalette::HighlightedText, shades.onAccent);
    QColor placeholder(shades.text);
    placeholder.setAlpha(128);
    palette.setColor(QPalette::PlaceholderText, placeholder);
    QApplication::setPalette(palette);
}

}  // namespace

void useLightPalette() { use(light); }

void useDarkPalette() { use(dark); }

int runTestsInApplication(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR_ROUNDING_POLICY", "PassThrough");
    qputenv("FONTCONFIG_FILE", QUARLIN_TEST_FONTS);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    QApplication::setStyle(new QuarlinStyle);
    QLocale::setDefault(QLocale::c());
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(13);
    QApplication::setFont(font);
    if (QFontInfo(font).family() != u"DejaVu Sans"_s) {
        std::fputs("These tests need the DejaVu fonts (package fonts-dejavu-core).\n", stderr);
        return 1;
    }
    // The caret of a text field does not blink, and nothing moves.
    QApplication::setCursorFlashTime(0);
    for (const Qt::UIEffect effect : {Qt::UI_AnimateMenu, Qt::UI_FadeMenu, Qt::UI_AnimateTooltip,
                                      Qt::UI_FadeTooltip, Qt::UI_AnimateToolBox}) {
        QApplication::setEffectEnabled(effect, false);
    }
    useLightPalette();
    return RUN_ALL_TESTS();
}

}  // namespace quarlin::fixtures
