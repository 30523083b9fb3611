#include "engine/base/export_folder.h"
#include "engine/base/output_size.h"
#include "engine/base/set_export.h"
#include "engine/base/texture_processor_error.h"
#include "engine/documents/documents.h"
#include "engine/material/material.h"
#include "engine/material/material_rows.h"
#include "engine/material/material_sources.h"
#include "imaging/base/pixel_size.h"
#include "imaging/png/png_file_set.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/output_names.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace quarlin {

namespace {

/// The images that an export writes, in writing order.
std::vector<MaterialFile> writtenImages(const ConversionSettings& settings, bool hasNormal) {
    std::vector<MaterialFile> files;
    for (const MaterialFile file : allCases<MaterialFile>()) {
        if (tableRow(file).image && isWritten(file, settings, hasNormal)) {
            files.push_back(file);
        }
    }
    return files;
}

/// The numbers of the files in the order of the slots that they are made from.
std::vector<std::size_t> inOrderOfSlots(const std::vector<MaterialFile>& files) {
    constexpr std::array order{MaterialFile::baseColor, MaterialFile::normal, MaterialFile::orm};
    std::vector<std::size_t> numbers;
    for (const MaterialFile file : order) {
        if (const auto place = std::find(files.begin(), files.end(), file); place != files.end()) {
            numbers.push_back(static_cast<std::size_t>(place - files.begin()));
        }
    }
    return numbers;
}

}  // namespace

ExportResult exportMaterialSet(const TextureMap& textures, const ConversionSettings& settings,
                               const QUrl& parentDirectory) {
    const auto base = textures.find(TextureSlotKind::baseColor);
    if (base == textures.end()) {
        throw TextureProcessorError::missingBaseColor();
    }
    const PixelSize size = resolvedOutputSize(base->second, settings);
    const OutputNames names{settings.safeMaterialName()};
    const bool hasNormal = textures.contains(TextureSlotKind::normal);
    const MaterialSources sources(textures);

    const std::vector<MaterialFile> images = writtenImages(settings, hasNormal);
    std::vector<PngPass> passes;
    passes.reserve(images.size());
    for (const MaterialFile file : images) {
        passes.push_back(plainPass(names[file], [&, image = *tableRow(file).image] {
            return openMaterialImage(image, sources, settings, size);
        }));
    }
    std::optional<LoadingExport> loading;
    if (sources.areUnloaded()) {
        loading = {inOrderOfSlots(images), [&] { sources.expectReadable(); }};
    }
    ExportResult result = exportImages(parentDirectory, names.materialName, size, std::move(passes), loading);
    if (settings.exportGLTF) {
        writeText(makeGLTFData(names, settings, hasNormal), names.gltf(), result);
    }
    if (settings.exportNotes) {
        writeText(makeNotes(names, settings, textures, hasNormal).toUtf8(), names.notes(), result);
    }
    return result;
}

}  // namespace quarlin
