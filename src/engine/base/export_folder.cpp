#include "engine/base/export_folder.h"

#include "engine/base/imaging_errors.h"
#include "engine/base/texture_processor_error.h"
#include "imaging/files/atomic_file.h"
#include "imaging/files/file_names.h"

#include <filesystem>
#include <system_error>

namespace quarlin {

ExportFolder::ExportFolder(const QUrl& parent, const QString& name) : m_url(fileIn(parent, name)) {
    const std::filesystem::path path = localPath(m_url);
    std::error_code failure;
    for (std::filesystem::path missing = path;
         missing.has_relative_path() && !std::filesystem::exists(missing, failure) && !failure;
         missing = missing.parent_path()) {
        m_created.push_back(missing);
    }
    failure.clear();
    std::filesystem::create_directories(path, failure);
    if (failure) {
        throw FileSystemError(m_url, failure.message());
    }
    removeAbandonedDrafts(m_url);
}

void ExportFolder::removeIfNew() {
    std::error_code failure;
    for (const std::filesystem::path& folder : m_created) {
        // Removes empty folders only.
        std::filesystem::remove(folder, failure);
    }
    m_created.clear();
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
