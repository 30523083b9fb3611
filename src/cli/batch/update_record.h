#pragma once

#include "cli/batch/set_job.h"

namespace quarlin {

// What a set was made from is kept in a hidden file of its folder, so that a later run can tell whether the
// set is still what it would write.

/// The name of that file.
QString updateRecordName();

/// The inputs of a set as they are now, its settings and the version of the program, as text.
QByteArray updateRecord(const SetJob& job);

/// Whether all files of the set are there, were made from the same inputs with the same settings, and are
/// newer than the inputs.
bool isUpToDate(const SetJob& job);

/// Keeps `record`, taken before the export, with the exported set. A record that can't be written is none:
/// the set is exported again next time.
void writeUpdateRecord(const SetJob& job, const QByteArray& record);

}  // namespace quarlin
