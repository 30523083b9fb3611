#include "cli/batch/planned_files.h"

#include "model/normal_output_names.h"
#include "model/output_names.h"

#include <utility>
#include <vector>

namespace quarlin {

namespace {

/// The names whose second value is true.
QStringList chosen(const std::vector<std::pair<QString, bool>>& names) {
    QStringList files;
    for (const auto& [name, isWritten] : names) {
        if (isWritten) {
            files += name;
        }
    }
    return files;
}

}  // namespace

QStringList plannedFiles(const ConversionSettings& settings, bool hasNormal) {
    const OutputNames names{settings.safeMaterialName()};
    return chosen({{names.baseColor(), true},
                   {names.orm(), true},
                   {names.normal(), hasNormal},
                   {names.gltf(), settings.exportGLTF},
                   {names.notes(), settings.exportNotes}});
}

QStringList plannedFiles(const NormalGeneratorSettings& settings) {
    const NormalOutputNames names{settings.safeMaterialName()};
    return chosen({{names.baseColor(), true},
                   {names.normal(), true},
                   {names.height(), settings.exportHeight},
                   {names.roughness(), settings.exportRoughness},
                   {names.gloss(), settings.exportGloss},
                   {names.metallic(), settings.exportMetallic},
                   {names.occlusion(), settings.exportAO},
                   {names.orm(), settings.exportORM},
                   {names.gltf(), settings.exportGLTF},
                   {names.notes(), settings.exportNotes}});
}

}  // namespace quarlin
