#include "cli/batch/set_job.h"

#include "cli/base/local_file.h"
#include "imaging/files/file_names.h"

#include <QFileInfo>
#include <QHash>
#include <QMap>

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// `path` in a form that is equal for paths that are the same file on some system: not every file system
/// distinguishes case and composed accents.
QString comparable(const QString& path) {
    return path.normalized(QString::NormalizationForm_C).toCaseFolded();
}

/// The path with all links resolved; the path itself if it does not exist yet.
QString realPath(const QString& path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

void refuse(SetJob& job, const QString& reason) {
    if (job.refusal.isEmpty()) {
        job.refusal = u"Export failed: "_s + reason;
    }
}

QString firstInput(const SetJob& job) { return job.inputs.empty() ? job.name : job.inputs.front().path; }

void refuseSameFolders(std::vector<SetJob>& jobs) {
    QMap<QString, QList<SetJob*>> byFolder;
    for (SetJob& job : jobs) {
        if (job.refusal.isEmpty()) {
            byFolder[comparable(job.folder.toLocalFile())].append(&job);
        }
    }
    for (const QList<SetJob*>& same : std::as_const(byFolder)) {
        for (SetJob* job : same) {
            const SetJob* other = job == same.first() ? same.last() : same.first();
            if (other != job) {
                refuse(*job, u"The sets of "_s + firstInput(*job) + u" and "_s + firstInput(*other) +
                                 u" go to the same folder"_s);
            }
        }
    }
}

void refuseReadersOfOutputs(std::vector<SetJob>& jobs) {
    QHash<QString, const SetJob*> writers;
    for (const SetJob& job : jobs) {
        for (const QString& file : job.refusal.isEmpty() ? job.files : QStringList()) {
            writers.insert(comparable(realPath(fileIn(job.folder, file).toLocalFile())), &job);
        }
    }
    for (SetJob& job : jobs) {
        for (const SetInput& input : job.inputs) {
            const SetJob* writer = writers.value(comparable(realPath(input.path)));
            if (writer != nullptr && writer != &job) {
                refuse(job, u"The set "_s + writer->name + u" overwrites its source "_s +
                                lastPathComponent(QUrl::fromLocalFile(input.path)));
            }
        }
    }
}

}  // namespace

SetJob refusedJob(const QString& path, const QString& refusal) {
    SetJob job;
    const QUrl location = localFile(path);
    job.name = lastPathComponent(location);
    job.inputs.push_back({u"source"_s, u"Source"_s, location.toLocalFile()});
    job.refusal = refusal;
    return job;
}

void refuseCollisions(BatchPlan& plan) {
    refuseSameFolders(plan.sets);
    refuseReadersOfOutputs(plan.sets);
    std::stable_partition(plan.sets.begin(), plan.sets.end(),
                          [](const SetJob& job) { return !job.refusal.isEmpty(); });
}

}  // namespace quarlin
