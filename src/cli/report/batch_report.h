#pragma once

#include "cli/base/exit_status.h"
#include "cli/report/batch_text.h"
#include "cli/report/progress_bar.h"

#include <optional>

namespace quarlin {

/// How a run on several sets is reported.
struct ReportForm {
    /// Lines of JSON, all on the standard output. Otherwise text, and what went wrong on the standard error.
    bool isJSON = false;
    /// Nothing is really done, and no progress is shown.
    bool isDryRun = false;
};

/// Tells of every set of a run and of the files that went into none, sums up at the end, and in between draws
/// a progress bar where the standard error is a terminal.
class BatchReport {
public:
    explicit BatchReport(ReportForm form) : m_form(form) {}

    void begin(const BatchPlan& plan);
    void addSet(const SetJob& job, const SetOutcome& outcome);
    /// Sums up. Tells whether all, some or none of the sets came out; none when the report could not be
    /// written.
    ExitStatus end();

private:
    void tell(const QString& output, const QString& errors);

    ReportForm m_form;
    BatchCounts m_counts;
    bool m_isWritten = true;
    std::optional<ProgressBar> m_progress;
};

}  // namespace quarlin
