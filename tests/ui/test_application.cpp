#include "test_application.h"

#include "ui/style/palettes.h"
#include "ui/style/quarlin_style.h"

#include <QApplication>
#include <QByteArrayView>
#include <QFont>
#include <QFontInfo>
#include <QLocale>
#include <QtGlobal>

#include <gtest/gtest.h>

#include <cstdio>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace quarlin::fixtures {

using namespace Qt::StringLiterals;

#ifdef __SANITIZE_ADDRESS__
namespace {

/// Looks for leaked memory while the OpenGL driver is still loaded. The driver is unloaded with the
/// application, and what it leaks could then neither be reached nor be named in leaks.supp.
class LeakCheck : public testing::Environment {
    void TearDown() override { __lsan_do_leak_check(); }
};

}  // namespace
#endif

void useLightPalette() { QApplication::setPalette(lightPalette()); }

void useDarkPalette() { QApplication::setPalette(darkPalette()); }

int runTestsInApplication(int argc, char** argv, const char* platform) {
    ::testing::InitGoogleTest(&argc, argv);
#ifdef __SANITIZE_ADDRESS__
    if (QByteArrayView(platform) != "offscreen") {
        testing::AddGlobalTestEnvironment(new LeakCheck);
    }
#endif
    qputenv("QT_QPA_PLATFORM", platform);
    // Else the offscreen platform uses the OpenGL of a display, if there is one.
    qputenv("QT_QPA_OFFSCREEN_NO_GLX", "1");
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
