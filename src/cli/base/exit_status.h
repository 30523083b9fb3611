#pragma once

namespace quarlin {

/// What the program ends with.
enum ExitStatus : int {
    done = 0,
    /// The words were right, but nothing of the work succeeded.
    workFailed = 1,
    /// The words of the command line are off.
    wordsAreOff = 2,
    /// Some of the work succeeded, some did not.
    someFailed = 3,
};

}  // namespace quarlin
