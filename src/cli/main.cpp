#include "cli/base/standard_streams.h"
#include "cli/batch/interruption.h"
#include "cli/program.h"
#include "engine/base/texture_processor_error.h"
#include "imaging/decode/start_imaging.h"

#include <exception>
#include <new>

using namespace Qt::StringLiterals;

// There is no Qt application object: the engine needs none, and making one would print a warning wherever the
// locale's encoding is not UTF-8.
int main(int argumentCount, char* rawArguments[]) {
    using namespace quarlin;
    reserveStandardStreams();
    startImaging();
    QStringList arguments;
    for (int index = 1; index < argumentCount; ++index) {
        arguments += QString::fromLocal8Bit(rawArguments[index]);
    }
    try {
        const ExitStatus status = runProgram(arguments);
        endIfInterrupted();
        return number(status);
    } catch (const std::bad_alloc&) {
        writeToStandardError(u"Export failed: "_s + outOfMemoryDescription() + u'\n');
        return number(ExitStatus::failed);
    } catch (const std::exception& error) {
        writeToStandardError(u"quarlin-cli: "_s + QString::fromLocal8Bit(error.what()) + u'\n');
        return number(ExitStatus::failed);
    }
}
