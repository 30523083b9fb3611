#include "color_scheme.h"

#include "colors.h"
#include "test_application.h"

#include <QApplication>

#include <gtest/gtest.h>

#ifdef QUARLIN_HAS_PORTAL
#include "portal_color_scheme.h"
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
    const QString appearance = QStringLiteral("org.freedesktop.appearance");
    portal.settingChanged(appearance, QStringLiteral("color-scheme"), QDBusVariant(1U));
    EXPECT_TRUE(isDark());
    portal.settingChanged(appearance, QStringLiteral("accent-color"), QDBusVariant(2U));
    EXPECT_TRUE(isDark());
    portal.settingChanged(appearance, QStringLiteral("color-scheme"), QDBusVariant(2U));
    EXPECT_FALSE(isDark());
}
#endif

}  // namespace
