#include "cli/report/batch_text.h"

#include "cli/base/printable.h"
#include "cli/report/counted.h"
#include "cli/report/json_line.h"
#include "cli/report/report.h"
#include "imaging/files/file_names.h"
#include "model/export_result.h"
#include "model/texture_slot_kind.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The number of the contract in docs/report.md. It changes with every change that a script may stumble over.
constexpr std::int64_t reportVersion = 1;

QString statusName(SetStatus status) {
    switch (status) {
        case SetStatus::exported:
            return u"exported"_s;
        case SetStatus::planned:
            return u"planned"_s;
        case SetStatus::upToDate:
            return u"upToDate"_s;
        case SetStatus::failed:
            return u"failed"_s;
        case SetStatus::notStarted:
            return u"notStarted"_s;
    }
    return {};
}

/// The files of the set that exist already.
QStringList replacedFiles(const ExportResult& result) {
    QStringList files;
    for (const QString& file : result.files) {
        if (QFileInfo::exists(fileIn(result.folderURL, file).toLocalFile())) {
            files += file;
        }
    }
    return files;
}

/// What was decided beforehand, and what became known while the set was exported.
std::vector<JsonLine> noteObjects(const SetJob& job, const SetOutcome& outcome) {
    std::vector<SetNote> notes = outcome.notes;
    std::transform(job.decisions.begin(), job.decisions.end(), std::inserter(notes, notes.begin()),
                   [](const QString& decision) {
                       return SetNote{u"decided"_s, decision};
                   });
    std::vector<JsonLine> objects;
    objects.reserve(notes.size());
    for (const SetNote& note : notes) {
        objects.push_back(JsonLine()
                              .add(u"code"_s, note.code)
                              .add(u"text"_s, note.text)
                              .add(u"input"_s, note.input)
                              .add(u"profile"_s, note.profile));
    }
    return objects;
}

QString plannedText(const SetJob& job, const ExportResult& result) {
    QString text = u"Would export: "_s + printable(folderPath(result)) + u'\n';
    for (const SetInput& input : job.inputs) {
        const auto channel = fromRawValue<TextureChannel>(input.channel);
        text += u"Would read "_s + printable(input.path) + u" ("_s + input.title +
                (channel ? u", "_s + title(*channel) : QString()) + u")\n"_s;
    }
    const QStringList replaced = replacedFiles(result);
    for (const QString& file : result.files) {
        text += (replaced.contains(file) ? u"Would replace "_s : u"Would write "_s) + printable(file) + u'\n';
    }
    return text;
}

}  // namespace

QString setText(const SetJob& job, const SetOutcome& outcome) {
    QString text;
    if (outcome.status == SetStatus::exported) {
        text = textReport(outcome.result);
    } else if (outcome.status == SetStatus::planned) {
        text = plannedText(job, outcome.result);
    } else if (outcome.status == SetStatus::upToDate) {
        return u"Up to date: "_s + folderPath(outcome.result) + u'\n';
    } else {
        return {};
    }
    for (const QString& decision : job.decisions) {
        text += u"Note: "_s + printable(decision) + u'\n';
    }
    return text + noteLines(outcome.notes);
}

QString failureText(const SetJob& job, const SetOutcome& outcome) {
    return outcome.status == SetStatus::failed
               ? printable(job.name + u": "_s + outcome.failure) + u'\n' + reasonLine(outcome.details)
               : QString();
}

QString setLine(const SetJob& job, const SetOutcome& outcome) {
    JsonLine inputs;
    JsonLine channels;
    for (const SetInput& input : job.inputs) {
        inputs.add(input.identifier, input.path);
        if (!input.channel.isEmpty()) {
            channels.add(input.identifier, input.channel);
        }
    }
    JsonLine line;
    line.add(u"type"_s, u"set"_s)
        .add(u"version"_s, reportVersion)
        .add(u"status"_s, statusName(outcome.status))
        .add(u"name"_s, job.name)
        .add(u"folder"_s, job.folder.adjusted(QUrl::StripTrailingSlash).toLocalFile())
        .add(u"files"_s, outcome.result.files)
        .add(u"replaced"_s,
             outcome.status == SetStatus::planned ? replacedFiles(outcome.result) : QStringList())
        .add(u"inputs"_s, inputs)
        .add(u"channels"_s, channels)
        .add(u"notes"_s, noteObjects(job, outcome));
    JsonLine error;
    if (outcome.status == SetStatus::failed) {
        error.add(u"code"_s, outcome.details.code)
            .add(u"message"_s, outcome.failure)
            .add(u"path"_s, outcome.details.path)
            .add(u"reason"_s, outcome.details.reason);
    }
    return line.add(u"error"_s, error).text() + u'\n';
}

QString leftOutText(const UnusedFile& file) {
    return printable(u"Left out: "_s + file.path + u" ("_s + file.text + u')') + u'\n';
}

QString leftOutLine(const UnusedFile& file) {
    return JsonLine()
               .add(u"type"_s, u"leftOut"_s)
               .add(u"version"_s, reportVersion)
               .add(u"file"_s, file.path)
               .add(u"identifier"_s, rawValue(file.reason))
               .add(u"reason"_s, file.text)
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

QString summaryText(const BatchCounts& counts, bool isDryRun) {
    QString text = isDryRun ? counted(counts.of(SetStatus::planned), u"set"_s) + u" to export"_s
                            : counted(counts.of(SetStatus::exported), u"set"_s) + u" exported"_s;
    if (const int upToDate = counts.of(SetStatus::upToDate); upToDate > 0) {
        text += u", "_s + QString::number(upToDate) + u" up to date"_s;
    }
    if (const int failed = counts.of(SetStatus::failed); failed > 0) {
        text += u", "_s + QString::number(failed) + u" failed"_s;
    }
    if (const int notStarted = counts.of(SetStatus::notStarted); notStarted > 0) {
        text += u", "_s + QString::number(notStarted) + u" not started"_s;
    }
    if (counts.leftOut > 0) {
        text += u", "_s + counted(static_cast<int>(counts.leftOut), u"file"_s) + u" left out"_s;
    }
    return text + u'\n';
}

QString summaryLine(const BatchCounts& counts) {
    JsonLine line;
    line.add(u"type"_s, u"summary"_s)
        .add(u"version"_s, reportVersion)
        .add(u"sets"_s, static_cast<std::int64_t>(counts.all()));
    for (const SetStatus status : {SetStatus::exported, SetStatus::planned, SetStatus::upToDate,
                                   SetStatus::failed, SetStatus::notStarted}) {
        line.add(statusName(status), static_cast<std::int64_t>(counts.of(status)));
    }
    return line.add(u"leftOut"_s, counts.leftOut).text() + u'\n';
}

}  // namespace quarlin
