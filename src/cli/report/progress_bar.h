#pragma once

#include <QString>

namespace quarlin {

/// The progress of a run, in the last line of the terminal. Does nothing if the standard error is not a
/// terminal.
class ProgressBar {
public:
    explicit ProgressBar(int total);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// Draws the bar with `complete` of the total done. `latest` is the name of what was completed last.
    void show(int complete, const QString& latest);
    /// Removes the bar, so that lines can be written; the next `show` draws it again.
    void clear();

private:
    bool m_isTerminal;
    int m_total;
    bool m_isShown = false;
};

/// The bar as one line of at most `columns` characters.
QString progressLine(int complete, int total, const QString& latest, int columns);

}  // namespace quarlin
