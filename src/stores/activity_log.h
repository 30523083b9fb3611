#pragma once

#include <QString>
#include <QStringList>
#include <QTime>

#include <functional>

namespace quarlin {

/// Tells the local time of day.
using Clock = std::function<QTime()>;

/// What a tool has done, newest line first.
class ActivityLog {
public:
    /// The most lines that are kept; older ones are dropped.
    static constexpr qsizetype capacity = 80;

    /// A log holding `hint` alone, without a time. `clock` stamps the lines appended later.
    ActivityLog(const QString& hint, Clock clock);

    const QStringList& lines() const { return m_lines; }

    /// The log with `message` in front, behind its time as in "[14:03:27] Preview updated.".
    QStringList linesWith(const QString& message) const;

    /// Replaces every line.
    void setLines(QStringList lines) { m_lines = std::move(lines); }

private:
    QStringList m_lines;
    Clock m_clock;
};

}  // namespace quarlin
