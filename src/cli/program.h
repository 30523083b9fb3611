#pragma once

#include <QStringList>

namespace quarlin {

/// What the program ends with.
enum ExitStatus : int {
    done = 0,
    /// The words were right, but the work failed.
    workFailed = 1,
    /// The words of the command line are off.
    wordsAreOff = 2,
};

/// Does what `words`, the command line without the program's name, ask for.
ExitStatus runProgram(const QStringList& words);

}  // namespace quarlin
