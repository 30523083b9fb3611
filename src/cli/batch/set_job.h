#pragma once

#include "matching/texture_set.h"
#include "model/export_result.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <vector>

namespace quarlin {

/// A file that goes into a set.
struct SetInput {
    /// What it is for, as a script reads it ("baseColor") and as the user does ("Base Color").
    QString identifier;
    QString title;
    /// Absolute.
    QString path;
};

/// One set that is to be exported.
struct SetJob {
    /// The cleaned name, which is also the folder's.
    QString name;
    std::vector<SetInput> inputs;
    /// What the names of the inputs decided beyond the slots, each a clause.
    QStringList decisions;
    /// The folder that is written, and its files in writing order.
    QUrl folder;
    QStringList files;
    /// Why it can't be exported, known before any work; empty where it can.
    QString refusal;
    /// Loads the inputs and exports the set. Throws `CommandFailure`.
    std::function<ExportResult()> work;
};

/// The sets of one run, in the order in which they are reported.
struct BatchPlan {
    std::vector<SetJob> sets;
    std::vector<LeftOutFile> leftOut;
};

/// A set that can't even be planned: the file or folder at `path` is no source.
SetJob refusedJob(const QString& path, const QString& refusal);

/// Refuses the sets that would get in each other's way when exported side by side: those whose folders have
/// the same name, regardless of case, and those that read what another one writes.
void refuseCollisions(BatchPlan& plan);

}  // namespace quarlin
