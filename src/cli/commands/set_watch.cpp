#include "cli/commands/set_watch.h"

#include "cli/base/standard_streams.h"
#include "cli/batch/interruption.h"
#include "cli/batch/open_for_writing.h"
#include "cli/batch/update_record.h"
#include "cli/report/batch_text.h"
#include "cli/report/report.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>

namespace quarlin {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// How long inputs have to stay the same.
constexpr auto quietTime = 200ms;
/// How often an interruption is looked for.
constexpr auto interruptionTime = 100ms;

/// The inputs of a plan, their folders, and the folders that were searched.
QStringList watchedPaths(const BatchPlan& plan) {
    QStringList paths = plan.folders;
    for (const SetJob& job : plan.sets) {
        for (const SetInput& input : job.inputs) {
            paths += input.path;
            paths += QFileInfo(input.path).path();
        }
    }
    paths.removeDuplicates();
    return paths;
}

QString keyOf(const SetJob& job) { return job.folder.isEmpty() ? job.name : job.folder.toLocalFile(); }

}  // namespace

void SetWatch::run() {
    // Notifications need an application object. Making one warns if the locale's encoding is not UTF-8, which
    // is no concern of the user.
    const auto handler = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    std::array<char, 1> name{};
    std::array<char*, 2> arguments{name.data(), nullptr};
    int count = 1;
    const QCoreApplication application(count, arguments.data());
    qInstallMessageHandler(handler);

    QFileSystemWatcher watcher;
    const auto watch = [&](const QStringList& paths) {
        QStringList added;
        for (const QString& path : paths) {
            if (!watcher.files().contains(path) && !watcher.directories().contains(path) &&
                QFileInfo::exists(path)) {
                added += path;
            }
        }
        // A file that goes meanwhile can't be watched any more; its folder is.
        return !added.isEmpty() && watcher.addPaths(added).size() < added.size();
    };
    QTimer quiet;
    quiet.setSingleShot(true);
    quiet.setInterval(quietTime);
    QObject::connect(&watcher, &QFileSystemWatcher::fileChanged, &quiet, [&] { quiet.start(); });
    QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, &quiet, [&] { quiet.start(); });
    std::exception_ptr failure;
    QObject::connect(&quiet, &QTimer::timeout, &quiet, [&] {
        // An exception must not pass through the event loop.
        try {
            if (exportReadySets(watch)) {
                quiet.start();
            }
        } catch (...) {
            failure = std::current_exception();
            QCoreApplication::quit();
        }
    });
    QTimer interruption;
    interruption.setInterval(interruptionTime);
    QObject::connect(&interruption, &QTimer::timeout, &interruption, [] {
        if (isInterrupted()) {
            QCoreApplication::quit();
        }
    });
    interruption.start();
    quiet.start();
    QCoreApplication::exec();
    if (failure) {
        std::rethrow_exception(failure);
    }
}

bool SetWatch::exportReadySets(const std::function<bool(const QStringList&)>& watch) {
    BatchPlan plan = m_makePlan();
    // A file may have come into a new folder before that was watched.
    while (watch(watchedPaths(plan))) {
        plan = m_makePlan();
    }
    reportUnused(plan);
    BatchPlan ready;
    bool mustWait = false;
    for (const SetJob& job : plan.sets) {
        const QByteArray record = updateRecord(job) + job.refusal.toUtf8();
        if (m_exported.value(keyOf(job)) == record) {
            continue;
        }
        if (isReady(job, record)) {
            m_exported.insert(keyOf(job), record);
            ready.sets.push_back(job);
        } else {
            mustWait = true;
        }
    }
    exportSets(ready, m_setsAtOnce,
               [this](const SetJob& job, const SetOutcome& outcome) { report(job, outcome); });
    // What changed during the export is exported again.
    return mustWait;
}

bool SetWatch::isReady(const SetJob& job, const QByteArray& record) {
    const bool isSame = m_seen.value(keyOf(job)) == record;
    m_seen.insert(keyOf(job), record);
    return isSame && std::none_of(job.inputs.begin(), job.inputs.end(),
                                  [](const SetInput& input) { return isOpenForWriting(input.path); });
}

void SetWatch::report(const SetJob& job, const SetOutcome& outcome) const {
    if (m_isJSON) {
        writeToStandardOutput(setLine(job, outcome));
    } else if (outcome.status == SetStatus::exported) {
        writeToStandardOutput(u"Exported: "_s + folderPath(outcome.result) + u'\n');
    } else if (outcome.status == SetStatus::upToDate) {
        writeToStandardOutput(setText(job, outcome));
    } else {
        writeToStandardError(failureText(job, outcome));
    }
}

void SetWatch::reportUnused(const BatchPlan& plan) {
    for (const UnusedFile& file : plan.unused) {
        const QString text = leftOutText(file);
        if (!m_reported.contains(text)) {
            m_reported.insert(text);
            m_isJSON ? static_cast<void>(writeToStandardOutput(leftOutLine(file)))
                     : writeToStandardError(text);
        }
    }
}

}  // namespace quarlin
