#pragma once

#include "app/color_scheme.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <QVariant>

namespace quarlin {

/// Reads the desktop's color scheme from the settings portal that Linux desktops share, once and
/// whenever it changes. Without a portal nothing happens.
class PortalColorScheme : public QObject {
    Q_OBJECT

public:
    /// Listens on `bus`.
    explicit PortalColorScheme(QDBusConnection bus = QDBusConnection::sessionBus());

    /// What a value of the portal's setting means.
    static ColorScheme schemeOf(const QVariant& setting);

public Q_SLOTS:
    /// The portal reports that `key` of `area` has become `value`.
    void settingChanged(const QString& area, const QString& key, const QDBusVariant& value);
};

}  // namespace quarlin
