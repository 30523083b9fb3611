#pragma once

#include <QString>

#include <cstddef>

namespace quarlin {

// A run that is interrupted (by Ctrl-C or another signal that asks it to end) finishes the sets that it has
// started and starts no more. A second interruption ends it at once.

/// From now on the first interruption is only recorded, and the names of the sets in progress are written to
/// the standard error. Signals that the program was started to ignore stay ignored.
void deferInterruption();

/// Whether the run has been interrupted.
bool isInterrupted();

/// A set that is in progress as long as the object lives.
class SetInProgress {
public:
    explicit SetInProgress(const QString& name);
    ~SetInProgress();
    SetInProgress(const SetInProgress&) = delete;
    SetInProgress& operator=(const SetInProgress&) = delete;

    /// Whether the run was interrupted before the set began. Then its name was not written, and the set is
    /// not to be exported.
    bool isTooLate() const { return m_isTooLate; }

private:
    std::size_t m_place;
    bool m_isTooLate = false;
};

/// If the run was interrupted, ends the program by that signal, so that its caller sees the interruption.
void endIfInterrupted();

}  // namespace quarlin
