#include "cli/report/batch_report.h"

#include "cli/base/print.h"
#include "cli/base/standard_streams.h"

namespace quarlin {

void BatchReport::begin(const BatchPlan& plan) {
    m_counts.leftOut = static_cast<std::int64_t>(plan.unused.size());
    for (const UnusedFile& file : plan.unused) {
        if (m_form.isJSON) {
            write(leftOutLine(file), {});
        } else {
            write({}, leftOutText(file));
        }
    }
    if (!m_form.isDryRun) {
        m_progress.emplace(static_cast<int>(plan.sets.size()));
        m_progress->show(0, {});
    }
}

void BatchReport::addSet(const SetJob& job, const SetOutcome& outcome) {
    ++m_counts.sets[outcome.status];
    if (m_form.isJSON) {
        write(setLine(job, outcome), {});
    } else {
        write(setText(job, outcome), failureText(job, outcome));
    }
    if (m_progress) {
        m_progress->show(m_counts.all(), job.name);
    }
}

ExitStatus BatchReport::end() {
    m_progress.reset();
    const ExitStatus printed =
        print(m_form.isJSON ? summaryLine(m_counts) : summaryText(m_counts, m_form.isDryRun));
    const int good =
        m_counts.of(SetStatus::exported) + m_counts.of(SetStatus::planned) + m_counts.of(SetStatus::upToDate);
    if (good == 0) {
        return ExitStatus::failed;
    }
    if (printed != ExitStatus::done || !m_isWritten) {
        return ExitStatus::notReported;
    }
    return good == m_counts.all() ? ExitStatus::done : ExitStatus::someSetsFailed;
}

void BatchReport::write(const QString& output, const QString& errors) {
    if (m_progress) {
        m_progress->clear();
    }
    if (!output.isEmpty()) {
        m_isWritten = writeToStandardOutput(output) && m_isWritten;
    }
    if (!errors.isEmpty()) {
        writeToStandardError(errors);
    }
}

}  // namespace quarlin
