#include "cli/report/print.h"

#include "cli/report/standard_streams.h"
#include "cli/shell/help_text.h"

namespace quarlin {

using namespace Qt::StringLiterals;

ExitStatus print(const QString& text) {
    if (!writeToStandardOutput(text)) {
        writeToStandardError(programName() + u": Could not write to the standard output\n"_s);
        return ExitStatus::workFailed;
    }
    return ExitStatus::done;
}

}  // namespace quarlin
