#include "cli/batch/update_record.h"

#include "imaging/files/atomic_file.h"
#include "imaging/files/file_bytes.h"
#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"
#include "imaging/files/file_stamp.h"

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

QString updateRecordName() { return u".quarlin-set.txt"_s; }

QByteArray updateRecord(const SetJob& job) {
    QByteArray text = "quarlin-cli " QUARLIN_VERSION "\n" + job.settings + '\n';
    for (const SetInput& input : job.inputs) {
        const auto stamp = fileStamp(QUrl::fromLocalFile(input.path)).value_or(FileStamp());
        text += input.identifier.toUtf8() + ' ' + input.channel.toUtf8() + ' ' +
                QByteArray::number(qint64{stamp.size}) + ' ' + QByteArray::number(qint64{stamp.modified}) +
                ' ' + input.path.toUtf8() + '\n';
    }
    return text + job.files.join(u'\n').toUtf8() + '\n';
}

bool isUpToDate(const SetJob& job) {
    try {
        if (readFile(fileIn(job.folder, updateRecordName())).bytes != updateRecord(job)) {
            return false;
        }
    } catch (const FileError&) {
        return false;
    }
    std::int64_t newestInput = 0;
    for (const SetInput& input : job.inputs) {
        const auto stamp = fileStamp(QUrl::fromLocalFile(input.path));
        if (!stamp) {
            return false;
        }
        newestInput = std::max(newestInput, stamp->modified);
    }
    return std::all_of(job.files.begin(), job.files.end(), [&](const QString& file) {
        const auto stamp = fileStamp(fileIn(job.folder, file));
        return stamp && stamp->modified > newestInput;
    });
}

void writeUpdateRecord(const SetJob& job, const QByteArray& record) {
    try {
        AtomicFile file(fileIn(job.folder, updateRecordName()));
        file.write(record);
        file.commit();
    } catch (const FileError&) {
        return;
    }
}

}  // namespace quarlin
