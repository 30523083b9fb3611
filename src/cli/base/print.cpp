#include "cli/base/print.h"

#include "cli/base/program_name.h"
#include "cli/base/standard_streams.h"

namespace quarlin {

using namespace Qt::StringLiterals;

ExitStatus print(const QString& text) {
    if (!writeToStandardOutput(text)) {
        writeToStandardError(programName() + u": Could not write to the standard output\n"_s);
        return ExitStatus::notReported;
    }
    return ExitStatus::done;
}

}  // namespace quarlin
