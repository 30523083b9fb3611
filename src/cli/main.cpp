#include "cli/batch/interruption.h"
#include "cli/program.h"
#include "cli/report/standard_streams.h"
#include "imaging/decode/start_imaging.h"

#include <exception>

using namespace Qt::StringLiterals;

// There is no Qt application object: the engine needs none, and making one would print a warning wherever the
// locale's encoding is not UTF-8.
int main(int argumentCount, char* arguments[]) {
    using namespace quarlin;
    reserveStandardStreams();
    startImaging();
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
        writeToStandardError(u"quarlin-cli: "_s + QString::fromLocal8Bit(error.what()) + u'\n');
        return ExitStatus::workFailed;
    }
}
