#include "engine/base/export_folder.h"

#include "engine/base/imaging_errors.h"
#include "engine/base/texture_processor_error.h"
#include "imaging/files/atomic_file.h"
#include "imaging/files/file_names.h"

#include <filesystem>
#include <system_error>

namespace quarlin {

QUrl createExportFolder(const QUrl& parent, const QString& name) {
    QUrl folder = fileIn(parent, name);
    std::error_code failure;
    std::filesystem::create_directories(localPath(folder), failure);
    if (failure) {
        throw FileSystemError(folder, failure.message());
    }
    removeAbandonedDrafts(folder);
    return folder;
}

void writeText(const QByteArray& text, const QString& name, ExportResult& result) {
    const QUrl url = fileIn(result.folderURL, name);
    reportingEngineErrors(FileKind::text, [&] {
        AtomicFile file(url);
        file.write(text);
        file.commit();
    });
    result.files += name;
}

}  // namespace quarlin
