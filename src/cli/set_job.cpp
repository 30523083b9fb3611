#include "set_job.h"

#include "file_names.h"
#include "local_file.h"

#include <QFileInfo>
#include <QHash>
#include <QMap>

namespace quarlin {

namespace {

/// What two paths have in common that are one file on some system: case and the form of accents are not told
/// apart everywhere.
QString comparable(const QString& path) {
    return path.normalized(QString::NormalizationForm_C).toCaseFolded();
}

/// The path behind all links; the path itself where nothing is there yet.
QString realPath(const QString& path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

void refuse(SetJob& job, const QString& reason) {
    if (job.refusal.isEmpty()) {
        job.refusal = QStringLiteral("Export failed: ") + reason;
    }
}

QString firstInputName(const SetJob& job) {
    return job.inputs.empty() ? job.name : lastPathComponent(QUrl::fromLocalFile(job.inputs.front().path));
}

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
                refuse(*job, QStringLiteral("The set of ") + firstInputName(*other) +
                                 QStringLiteral(" has the same folder"));
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
                refuse(job, QStringLiteral("The set ") + writer->name +
                                QStringLiteral(" writes its source ") +
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
    job.inputs.push_back({QStringLiteral("source"), QStringLiteral("Source"), location.toLocalFile()});
    job.refusal = refusal;
    return job;
}

void refuseCollisions(BatchPlan& plan) {
    refuseSameFolders(plan.sets);
    refuseReadersOfOutputs(plan.sets);
}

}  // namespace quarlin
