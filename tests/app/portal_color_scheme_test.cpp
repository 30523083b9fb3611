#include "app/portal_color_scheme.h"

#include "private_bus.h"
#include "test_application.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QtTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

bool isDark() {
    return QApplication::palette().color(QPalette::Window).lightness() <
           QApplication::palette().color(QPalette::WindowText).lightness();
}

/// A settings portal, as a desktop has it.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(const QDBusConnection& bus) : m_bus(bus) {
        EXPECT_TRUE(m_bus.registerObject(u"/org/freedesktop/portal/desktop"_s, this,
                                         QDBusConnection::ExportAllContents));
        EXPECT_TRUE(m_bus.registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    void change(uint scheme) {
        m_scheme = scheme;
        Q_EMIT SettingChanged(u"org.freedesktop.appearance"_s, u"color-scheme"_s, QDBusVariant(scheme));
    }

public Q_SLOTS:
    // Real portals wrap the value of this call twice.
    QDBusVariant Read(const QString&, const QString&) const {
        return QDBusVariant(QVariant::fromValue(QDBusVariant(m_scheme)));
    }

Q_SIGNALS:
    void SettingChanged(const QString& area, const QString& key, const QDBusVariant& value);

private:
    QDBusConnection m_bus;
    uint m_scheme = 0;
};

class PortalTest : public testing::Test {
protected:
    ~PortalTest() override { useLightPalette(); }

    PrivateBus bus;
};

TEST_F(PortalTest, IsFollowedWhileTheProgramRuns) {
    Portal portal(bus.connect(u"portal"_s));
    const PortalColorScheme followed(bus.connect(u"program"_s));
    portal.change(1);
    EXPECT_TRUE(QTest::qWaitFor(isDark));
    portal.change(2);
    EXPECT_TRUE(QTest::qWaitFor([] { return !isDark(); }));
    portal.change(1);
    EXPECT_TRUE(QTest::qWaitFor(isDark));
    portal.change(0);
    EXPECT_TRUE(QTest::qWaitFor([] { return !isDark(); }));
}

TEST_F(PortalTest, IsAskedAtTheStart) {
    Portal portal(bus.connect(u"portal"_s));
    portal.change(1);
    const PortalColorScheme followed(bus.connect(u"program"_s));
    EXPECT_TRUE(QTest::qWaitFor(isDark));
}

TEST_F(PortalTest, MayAppearLater) {
    const PortalColorScheme followed(bus.connect(u"program"_s));
    Portal portal(bus.connect(u"portal"_s));
    portal.change(1);
    EXPECT_TRUE(QTest::qWaitFor(isDark));
}

}  // namespace

#include "portal_color_scheme_test.moc"
