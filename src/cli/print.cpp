#include "print.h"

#include "help_text.h"
#include "standard_streams.h"

namespace quarlin {

ExitStatus print(const QString& text) {
    if (!writeToStandardOutput(text)) {
        writeToStandardError(programName() + QStringLiteral(": Could not write to the standard output\n"));
        return ExitStatus::workFailed;
    }
    return ExitStatus::done;
}

}  // namespace quarlin
