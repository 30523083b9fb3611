#pragma once

#include "cli/base/exit_status.h"
#include "cli/report/batch_text.h"
#include "cli/report/progress_bar.h"

#include <optional>

namespace quarlin {

/// The form of the report on several sets.
struct ReportForm {
    /// Lines of JSON, all on the standard output. Otherwise text, with failures on the standard error.
    bool isJSON = false;
    /// Nothing is really exported, and no progress is shown.
    bool isDryRun = false;
};

/// Prints a report on each set of a run and on the files that were left out, then a summary. Meanwhile it
/// draws a progress bar if the standard error is a terminal.
class BatchReport {
public:
    explicit BatchReport(ReportForm form) : m_form(form) {}

    void begin(const BatchPlan& plan);
    void addSet(const SetJob& job, const SetOutcome& outcome);
    /// Prints the summary. Returns `done` if every set succeeded, `someSetsFailed` if some did, `failed` if
    /// none did, and `notReported` if some did but the report could not be written.
    ExitStatus end();

private:
    void write(const QString& output, const QString& errors);

    ReportForm m_form;
    BatchCounts m_counts;
    bool m_isWritten = true;
    std::optional<ProgressBar> m_progress;
};

}  // namespace quarlin
