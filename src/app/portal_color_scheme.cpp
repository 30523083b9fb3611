#include "app/portal_color_scheme.h"

#include "app/desktop_color_scheme.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

const QLatin1StringView service("org.freedesktop.portal.Desktop");
const QLatin1StringView path("/org/freedesktop/portal/desktop");
const QLatin1StringView interface("org.freedesktop.portal.Settings");
const QLatin1StringView appearance("org.freedesktop.appearance");
const QLatin1StringView colorScheme("color-scheme");

}  // namespace

PortalColorScheme::PortalColorScheme(QDBusConnection bus) {
    if (!bus.isConnected()) {
        return;
    }
    // The slot is found by the names of its types, and only values that have been sent register this one.
    qRegisterMetaType<QDBusVariant>();
    bus.connect(service, path, interface, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, u"Read"_s);
    question << QString(appearance) << QString(colorScheme);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [](QDBusPendingCallWatcher* finished) {
        const QDBusPendingReply<QDBusVariant> answer = *finished;
        if (!answer.isError()) {
            applyColorScheme(schemeOf(answer.value().variant()));
        }
        finished->deleteLater();
    });
}

ColorScheme PortalColorScheme::schemeOf(const QVariant& setting) {
    // Some portals wrap the value once, some twice.
    QVariant value = setting;
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    switch (value.toUInt()) {
        case 1:
            return ColorScheme::dark;
        case 2:
            return ColorScheme::light;
        default:
            return ColorScheme::unspecified;
    }
}

void PortalColorScheme::settingChanged(const QString& area, const QString& key, const QDBusVariant& value) {
    if (area == appearance && key == colorScheme) {
        applyColorScheme(schemeOf(value.variant()));
    }
}

std::unique_ptr<QObject> followDesktopColorScheme() { return std::make_unique<PortalColorScheme>(); }

}  // namespace quarlin
