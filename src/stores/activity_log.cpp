#include "activity_log.h"

#include <QLocale>

#include <utility>

namespace quarlin {

ActivityLog::ActivityLog(const QString& hint, Clock clock) : m_lines{hint}, m_clock(std::move(clock)) {}

QStringList ActivityLog::linesWith(const QString& message) const {
    const QString time = QLocale().toString(m_clock(), QStringLiteral("HH:mm:ss"));
    QStringList lines = m_lines;
    lines.prepend(u'[' + time + QStringLiteral("] ") + message);
    return lines.first(qMin(lines.size(), capacity));
}

}  // namespace quarlin
