#include "engine/base/set_export.h"

#include "engine/base/export_folder.h"
#include "engine/base/imaging_errors.h"

#include <utility>

namespace quarlin {

namespace {

ExportFolder createFolder(const QUrl& parent, const QString& name,
                          const std::optional<LoadingExport>& loading) {
    try {
        return {parent, name};
    } catch (...) {
        if (loading) {
            loading->expectReadable();
        }
        throw;
    }
}

}  // namespace

ExportResult exportImages(const QUrl& parent, const QString& name, PixelSize size,
                          std::vector<PngPass> passes, const std::optional<LoadingExport>& loading) {
    ExportFolder folder = createFolder(parent, name, loading);
    ExportResult result{folder.url(), {}};
    std::optional<PngFileSet> images(std::in_place, folder.url(), size, std::move(passes));
    images->encode();
    if (loading) {
        try {
            for (const std::size_t pass : loading->passes) {
                images->expectInput(pass);
            }
        } catch (...) {
            images.reset();
            folder.removeIfNew();
            throw;
        }
    }
    reportingEngineErrors(FileKind::image, [&] { images->commit(result.files); });
    return result;
}

}  // namespace quarlin
