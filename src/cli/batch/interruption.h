#pragma once

namespace quarlin {

// A run that is interrupted (by Ctrl-C or another signal that asks it to end) finishes the sets that it has
// started and starts no more. A second interruption ends it at once.

/// From now on the first interruption is only recorded. Signals that the program was started to ignore stay
/// ignored.
void deferInterruption();

/// Whether the run has been interrupted.
bool isInterrupted();

/// If the run was interrupted, ends the program by that signal, so that its caller sees the interruption.
void endIfInterrupted();

}  // namespace quarlin
