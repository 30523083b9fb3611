#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStringList>

#include <gtest/gtest.h>

namespace quarlin::fixtures {

using namespace Qt::StringLiterals;

/// A message bus of the test's own, which nothing else of the machine is connected to.
class PrivateBus {
public:
    PrivateBus() {
        m_daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        if (!m_daemon.waitForStarted() || !m_daemon.waitForReadyRead()) {
            ADD_FAILURE() << "dbus-daemon does not start (package dbus-daemon)";
        }
        m_address = QString::fromLocal8Bit(m_daemon.readLine()).trimmed();
    }
    ~PrivateBus() {
        for (const QString& name : m_names) {
            QDBusConnection::disconnectFromBus(name);
        }
        m_daemon.terminate();
        m_daemon.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(PrivateBus)

    /// A connection of its own, as a program has it.
    QDBusConnection connect(const QString& name) {
        m_names << name;
        QDBusConnection connection = QDBusConnection::connectToBus(m_address, name);
        EXPECT_TRUE(connection.isConnected()) << m_address.toStdString();
        return connection;
    }

private:
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

}  // namespace quarlin::fixtures
