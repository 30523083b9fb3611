#pragma once

#include <QString>
#include <QStringList>
#include <QTime>

#include <functional>

namespace quarlin {

/// Returns the local time of day.
using Clock = std::function<QTime()>;

/// The log lines of a tool, newest first.
class ActivityLog {
public:
    /// The most lines that are kept; older ones are dropped.
    static constexpr qsizetype capacity = 80;

    /// A log with the one line `hint`, without a time. `clock` gives the times of the lines that follow.
    ActivityLog(const QString& hint, Clock clock);

    const QStringList& lines() const { return m_lines; }

    /// The lines with one more in front: the time and `message`, as in "[14:03:27] Preview updated.".
    QStringList linesWith(const QString& message) const;

    /// Replaces every line.
    void setLines(QStringList lines) { m_lines = std::move(lines); }

private:
    QStringList m_lines;
    Clock m_clock;
};

}  // namespace quarlin
