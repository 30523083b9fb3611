#include "stores/activity_log.h"

#include <QLocale>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

ActivityLog::ActivityLog(const QString& hint, Clock clock) : m_lines{hint}, m_clock(std::move(clock)) {}

QStringList ActivityLog::linesWith(const QString& message) const {
    const QString time = QLocale().toString(m_clock(), u"HH:mm:ss"_s);
    QStringList lines = m_lines;
    lines.prepend(u'[' + time + u"] "_s + message);
    return lines.first(qMin(lines.size(), capacity));
}

}  // namespace quarlin
