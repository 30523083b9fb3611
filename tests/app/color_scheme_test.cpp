#include "app/color_scheme.h"

#include "test_application.h"
#include "ui/style/colors.h"

#include <QApplication>

#include <gtest/gtest.h>

#ifdef QUARLIN_HAS_PORTAL
#include "app/portal_color_scheme.h"

using namespace Qt::StringLiterals;
#endif

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

bool isDark() {
    return QApplication::palette().color(QPalette::Window).lightness() <
           QApplication::palette().color(QPalette::WindowText).lightness();
}

class ColorSchemeTest : public testing::Test {
protected:
    ~ColorSchemeTest() override { useLightPalette(); }
};

TEST_F(ColorSchemeTest, TurnsDarkAndLightAgain) {
    applyColorScheme(ColorScheme::dark);
    EXPECT_TRUE(isDark());
    applyColorScheme(ColorScheme::light);
    EXPECT_FALSE(isDark());
    applyColorScheme(ColorScheme::dark);
    applyColorScheme(ColorScheme::unspecified);
    EXPECT_FALSE(isDark());
}

TEST_F(ColorSchemeTest, KeepsThePlatformsPaletteWhereItFits) {
    QApplication::setPalette(QPalette());
    const QPalette platform = QApplication::palette();
    applyColorScheme(ColorScheme::light);
    EXPECT_EQ(QApplication::palette(), platform);
}

#ifdef QUARLIN_HAS_PORTAL
TEST_F(ColorSchemeTest, IsReadFromThePortalsSetting) {
    EXPECT_EQ(PortalColorScheme::schemeOf(1U), ColorScheme::dark);
    EXPECT_EQ(PortalColorScheme::schemeOf(2U), ColorScheme::light);
    EXPECT_EQ(PortalColorScheme::schemeOf(0U), ColorScheme::unspecified);
    EXPECT_EQ(PortalColorScheme::schemeOf(99U), ColorScheme::unspecified);
    EXPECT_EQ(PortalColorScheme::schemeOf({}), ColorScheme::unspecified);
    const QDBusVariant wrapped(QVariant::fromValue(QDBusVariant(1U)));
    EXPECT_EQ(PortalColorScheme::schemeOf(QVariant::fromValue(wrapped)), ColorScheme::dark);
}

TEST_F(ColorSchemeTest, FollowsThePortalWhileRunning) {
    PortalColorScheme portal;
    const QString appearance = u"org.freedesktop.appearance"_s;
    portal.settingChanged(appearance, u"color-scheme"_s, QDBusVariant(1U));
    EXPECT_TRUE(isDark());
    portal.settingChanged(appearance, u"accent-color"_s, QDBusVariant(2U));
    EXPECT_TRUE(isDark());
    portal.settingChanged(appearance, u"color-scheme"_s, QDBusVariant(2U));
    EXPECT_FALSE(isDark());
}
#endif

}  // namespace
