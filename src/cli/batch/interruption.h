#pragma once

namespace quarlin {

// A run that is interrupted (Ctrl-C, or asked to end) completes the sets that it is at and begins no other,
// so that no file is left half-written. A second interruption ends it at once.

/// From now on an interruption is only remembered. Signals that the program was started to ignore stay
/// ignored.
void deferInterruption();

/// Whether the run has been interrupted.
bool isInterrupted();

/// Ends the program by the signal that interrupted it, as whoever started it expects; does nothing where
/// there was none.
void endIfInterrupted();

}  // namespace quarlin
