#pragma once

#include <QString>

namespace quarlin {

/// If the program was started with a standard stream closed, reserves its file descriptor, so that no file
/// that is opened later gets it. Must be called before anything else.
void reserveStandardStreams();

/// Writes `text` to the standard output as UTF-8. Returns whether all of it was written.
bool writeToStandardOutput(const QString& text);

/// Writes `text` to the standard error as UTF-8.
void writeToStandardError(const QString& text);

/// The width in characters of the terminal that the standard error goes to; 0 if it is not a terminal, or one
/// that can't redraw a line.
int terminalColumns();

}  // namespace quarlin
