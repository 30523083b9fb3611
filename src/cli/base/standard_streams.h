#pragma once

#include <QString>

namespace quarlin {

/// Keeps the numbers of the standard streams from being given to the next file that is opened when the
/// program was started with them closed. To be called first of all.
void reserveStandardStreams();

/// Writes `text` to the standard output as UTF-8; false when it could not all be written.
bool writeToStandardOutput(const QString& text);

/// Writes `text` to the standard error as UTF-8.
void writeToStandardError(const QString& text);

/// The width in characters of the terminal that the standard error goes to; 0 where it is none, or one that
/// can only add lines.
int terminalColumns();

}  // namespace quarlin
