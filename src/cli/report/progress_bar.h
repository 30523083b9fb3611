#pragma once

#include <QString>

namespace quarlin {

/// How far a run is, in the last line of the terminal. Where the standard error is no terminal nothing is
/// written.
class ProgressBar {
public:
    explicit ProgressBar(int total);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /// Draws the bar: `complete` of the total. `latest` is what was completed last.
    void show(int complete, const QString& latest);
    /// Takes the bar off the screen, so that lines can be written; the next `show` draws it again.
    void clear();

private:
    bool m_isTerminal;
    int m_total;
    bool m_isShown = false;
};

/// The bar as one line of at most `columns` characters.
QString progressLine(int complete, int total, const QString& latest, int columns);

}  // namespace quarlin
