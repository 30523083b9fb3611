#pragma once

#include "matching/unused_file.h"
#include "model/export_result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <vector>

namespace quarlin {

/// A file that a set is made from.
struct SetInput {
    /// Its purpose, for scripts ("baseColor") and for the user ("Base Color").
    QString identifier;
    QString title;
    /// Absolute.
    QString path;
    /// The letter of the channel that is used; empty for the whole picture.
    QString channel = {};
};

/// What the user should know about an exported set.
struct SetNote {
    /// For scripts.
    QString code;
    /// A clause.
    QString text;
    /// The identifier of the input that it is about; empty if it is about the set.
    QString input = {};
    /// The color profile that the input was converted from; empty for another note.
    QString profile = {};
};

struct ExportedSet {
    ExportResult result;
    std::vector<SetNote> notes = {};
};

/// One set to export.
struct SetJob {
    /// The safe name, which is also that of the folder.
    QString name;
    std::vector<SetInput> inputs;
    /// What was decided from the names of the inputs besides their slots, each a clause.
    QStringList decisions;
    /// The folder that is written, and its files in writing order.
    QUrl folder;
    QStringList files;
    /// The settings, as text: see `settingsRecord`.
    QByteArray settings;
    /// Whether a set that is up to date is skipped: see `isUpToDate`.
    bool skipsIfUpToDate = false;
    /// Why the set can't be exported, as far as that is known beforehand; empty if it can.
    QString refusal;
    /// Loads the inputs and exports the set. Throws `CommandFailure`.
    std::function<ExportedSet()> work;
};

/// The sets of one run, in the order in which they are reported.
struct BatchPlan {
    std::vector<SetJob> sets;
    /// The pictures that no set uses.
    std::vector<UnusedFile> unused;
    /// The folders that were searched; absolute paths.
    QStringList folders;
};

/// A set that can't be planned, because the file or folder at `path` can't be used.
SetJob refusedJob(const QString& path, const QString& refusal);

/// Refuses sets that would conflict when exported at the same time: those whose folders have the same name,
/// regardless of case, and those that read what another one writes. Refused sets come first, so that they are
/// reported before anything is written.
void refuseCollisions(BatchPlan& plan);

}  // namespace quarlin
