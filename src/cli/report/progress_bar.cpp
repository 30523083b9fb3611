#include "cli/report/progress_bar.h"

#include "cli/base/standard_streams.h"

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Moves to the first column and clears the line.
const auto clearedLine = u"\r\x1b[K"_s;

}  // namespace

ProgressBar::ProgressBar(int total) : m_isTerminal(terminalColumns() > 0), m_total(total) {}

ProgressBar::~ProgressBar() { clear(); }

void ProgressBar::show(int complete, const QString& latest) {
    if (m_isTerminal) {
        // The last column stays empty: some terminals move to the next line after writing there.
        writeToStandardError(clearedLine + progressLine(complete, m_total, latest, terminalColumns() - 1));
        m_isShown = true;
    }
}

void ProgressBar::clear() {
    if (m_isShown) {
        writeToStandardError(clearedLine);
        m_isShown = false;
    }
}

QString progressLine(int complete, int total, const QString& latest, int columns) {
    constexpr int widest = 30;
    const QString count = QString::number(complete) + u'/' + QString::number(total);
    const int room = std::min(widest, columns - static_cast<int>(count.size()) - 3);
    QString line = count;
    if (room > 0) {
        const int filled = total > 0 ? room * complete / total : 0;
        line = u'[' + QString(filled, u'#') + QString(room - filled, u'.') + u"] "_s + count;
    }
    return (latest.isEmpty() ? line : line + u' ' + latest).left(std::max(0, columns));
}

}  // namespace quarlin
