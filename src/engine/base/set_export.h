#pragma once

#include "imaging/base/pixel_size.h"
#include "imaging/png/png_file_set.h"
#include "model/export_result.h"

#include <QUrl>

#include <functional>
#include <optional>
#include <vector>

namespace quarlin {

/// How an export loads textures that were opened but not loaded before. If one can't be read, nothing is
/// written and no folder created, as if the failure had been met before the export.
struct LoadingExport {
    /// The numbers of the passes in the order in which their inputs are loaded.
    std::vector<std::size_t> passes;
    /// Reads all inputs to the end and throws what the first one throws.
    std::function<void()> expectReadable;
};

/// Makes the folder `name` in `parent` and writes the images of a set into it. Throws `FileSystemError` if
/// the folder can't be created, what the inputs throw, `cannotCreatePNG` and `cannotWritePNG`. The files that
/// were written before that stay.
ExportResult exportImages(const QUrl& parent, const QString& name, PixelSize size,
                          std::vector<PngPass> passes, const std::optional<LoadingExport>& loading);

}  // namespace quarlin
