#include "batch_text.h"

#include "file_names.h"
#include "json_line.h"
#include "report.h"

#include <QFileInfo>

namespace quarlin {

namespace {

QString statusWord(SetStatus status) {
    switch (status) {
        case SetStatus::exported:
            return QStringLiteral("exported");
        case SetStatus::planned:
            return QStringLiteral("planned");
        case SetStatus::failed:
            return QStringLiteral("failed");
        case SetStatus::notStarted:
            return QStringLiteral("notStarted");
    }
    return {};
}

/// The files of the set that are there already.
QStringList replacedFiles(const ExportResult& result) {
    QStringList files;
    for (const QString& file : result.files) {
        if (QFileInfo::exists(fileIn(result.folderURL, file).toLocalFile())) {
            files += file;
        }
    }
    return files;
}

QString plannedText(const SetJob& job, const ExportResult& result) {
    QString text = QStringLiteral("Would export: ") + folderPath(result) + u'\n';
    for (const SetInput& input : job.inputs) {
        text += QStringLiteral("Would read ") + input.path + QStringLiteral(" (") + input.title +
                QStringLiteral(")\n");
    }
    const QStringList replaced = replacedFiles(result);
    for (const QString& file : result.files) {
        text +=
            (replaced.contains(file) ? QStringLiteral("Would replace ") : QStringLiteral("Would write ")) +
            file + u'\n';
    }
    return text;
}

QString counted(int count, const QString& noun) {
    return QString::number(count) + u' ' + noun + (count == 1 ? QString() : QStringLiteral("s"));
}

}  // namespace

QString setText(const SetJob& job, const SetOutcome& outcome) {
    QString text;
    if (outcome.status == SetStatus::exported) {
        text = textReport(outcome.result);
    } else if (outcome.status == SetStatus::planned) {
        text = plannedText(job, outcome.result);
    } else {
        return {};
    }
    for (const QString& decision : job.decisions) {
        text += QStringLiteral("Note: ") + decision + u'\n';
    }
    return text;
}

QString failureText(const SetJob& job, const SetOutcome& outcome) {
    return outcome.status == SetStatus::failed ? job.name + QStringLiteral(": ") + outcome.failure + u'\n'
                                               : QString();
}

QString setLine(const SetJob& job, const SetOutcome& outcome) {
    JsonLine inputs;
    for (const SetInput& input : job.inputs) {
        inputs.add(input.identifier, input.path);
    }
    JsonLine line;
    line.add(QStringLiteral("type"), QStringLiteral("set"))
        .add(QStringLiteral("name"), job.name)
        .add(QStringLiteral("status"), statusWord(outcome.status))
        .add(QStringLiteral("inputs"), inputs);
    if (!job.decisions.isEmpty()) {
        line.add(QStringLiteral("decisions"), job.decisions);
    }
    if (outcome.status == SetStatus::failed) {
        line.add(QStringLiteral("error"), outcome.failure);
    } else if (outcome.status != SetStatus::notStarted) {
        line.add(QStringLiteral("folder"), folderPath(outcome.result))
            .add(QStringLiteral("files"), outcome.result.files);
    }
    if (outcome.status == SetStatus::planned) {
        line.add(QStringLiteral("replaced"), replacedFiles(outcome.result));
    }
    return line.text() + u'\n';
}

QString leftOutText(const LeftOutFile& file) {
    return QStringLiteral("Left out: ") + file.path + QStringLiteral(" (") + file.reason +
           QStringLiteral(")\n");
}

QString leftOutLine(const LeftOutFile& file) {
    return JsonLine()
               .add(QStringLiteral("type"), QStringLiteral("leftOut"))
               .add(QStringLiteral("file"), file.path)
               .add(QStringLiteral("reason"), file.reason)
               .text() +
           u'\n';
}

int BatchCounts::of(SetStatus status) const {
    const auto found = sets.find(status);
    return found == sets.end() ? 0 : found->second;
}

int BatchCounts::all() const {
    int sum = 0;
    for (const auto& [status, count] : sets) {
        sum += count;
    }
    return sum;
}

QString summaryText(const BatchCounts& counts, bool isRehearsal) {
    QString text =
        isRehearsal
            ? counted(counts.of(SetStatus::planned), QStringLiteral("set")) + QStringLiteral(" to export")
            : counted(counts.of(SetStatus::exported), QStringLiteral("set")) + QStringLiteral(" exported");
    if (const int failed = counts.of(SetStatus::failed); failed > 0) {
        text += QStringLiteral(", ") + QString::number(failed) + QStringLiteral(" failed");
    }
    if (const int notStarted = counts.of(SetStatus::notStarted); notStarted > 0) {
        text += QStringLiteral(", ") + QString::number(notStarted) + QStringLiteral(" not started");
    }
    if (counts.leftOut > 0) {
        text += QStringLiteral(", ") + counted(static_cast<int>(counts.leftOut), QStringLiteral("file")) +
                QStringLiteral(" left out");
    }
    return text + u'\n';
}

QString summaryLine(const BatchCounts& counts) {
    JsonLine line;
    line.add(QStringLiteral("type"), QStringLiteral("summary"))
        .add(QStringLiteral("sets"), static_cast<std::int64_t>(counts.all()));
    for (const SetStatus status :
         {SetStatus::exported, SetStatus::planned, SetStatus::failed, SetStatus::notStarted}) {
        line.add(statusWord(status), static_cast<std::int64_t>(counts.of(status)));
    }
    return line.add(QStringLiteral("leftOut"), counts.leftOut).text() + u'\n';
}

}  // namespace quarlin
