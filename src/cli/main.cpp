#include "band_memory.h"
#include "interruption.h"
#include "program.h"
#include "standard_streams.h"

#include <exception>

// There is no Qt application object: the engine needs none, and making one would print a warning wherever the
// locale's encoding is not UTF-8.
int main(int argumentCount, char* arguments[]) {
    using namespace quarlin;
    reserveStandardStreams();
    keepBandMemory();
    QStringList words;
    for (int index = 1; index < argumentCount; ++index) {
        words += QString::fromLocal8Bit(arguments[index]);
    }
    try {
        const ExitStatus status = runProgram(words);
        endIfInterrupted();
        return status;
    } catch (const std::exception& error) {
        // Not foreseen: memory that has run out, above all.
        writeToStandardError(QStringLiteral("quarlin-cli: ") + QString::fromLocal8Bit(error.what()) + u'\n');
        return ExitStatus::workFailed;
    }
}
