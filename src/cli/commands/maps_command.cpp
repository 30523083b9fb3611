#include "cli/commands/maps_command.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"
#include "cli/batch/planned_files.h"
#include "cli/batch/settings_record.h"
#include "cli/batch/texture_loading.h"
#include "cli/options/file_options.h"
#include "engine/texture_processor.h"
#include "imaging/files/file_names.h"
#include "matching/texture_set.h"
#include "model/generated_set.h"
#include "model/texture_asset.h"

#include <QFileInfo>
#include <QSet>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The computed maps in writing order, as part of a sentence. The packed map is left out, as it repeats
/// others.
QString mapList() {
    QStringList names;
    for (const auto& file : EnumerationTable<GeneratedFile>::rows) {
        if (file.map && *file.map != GeneratedMap::source && *file.map != GeneratedMap::orm) {
            names += rawValue(*file.map);
        }
    }
    const QString last = names.takeLast();
    return names.join(u", "_s) + u" and "_s + last;
}

}  // namespace

QString MapsCommand::summary() const { return u"Generates "_s + mapList() + u" maps from a texture."_s; }

CommandOptions MapsCommand::ownOptions() {
    CommandOptions options{
        required(pathsOption(u"source"_s, u"FILE"_s,
                             u"the texture to estimate the maps from, or a folder of textures; can be given "
                             "more than once"_s,
                             ValueKind::fileOrFolder, m_sources)),
        ownNameOption(),
        sizeOption(m_settings.outputResolution),
        numberOption(u"strength"_s, u"steepness of the normal map"_s, m_settings.strength, strengthRange),
        countOption(u"smoothing"_s, u"blur passes over the height field"_s, m_settings.smoothing,
                    smoothingRange),
        switchOption(u"invert-height"_s, u"treat dark as high"_s, m_settings.invertHeight, true),
        switchOption(u"flip-green"_s,
                     u"invert the green of the normal map, so that it points up as in glTF"_s,
                     m_settings.flipGreen, true),
        numberOption(u"roughness-min"_s, u"one bound of the roughness"_s, m_settings.roughnessMin,
                     fractionRange),
        numberOption(u"roughness-max"_s, u"the other bound of the roughness"_s, m_settings.roughnessMax,
                     fractionRange),
        numberOption(u"metallic-strength"_s, u"strength of the metallic map"_s, m_settings.metallicStrength,
                     fractionRange),
        numberOption(u"ao-strength"_s, u"depth of the ambient occlusion"_s, m_settings.aoStrength,
                     fractionRange),
    };
    addFileOptions<GeneratedFile>(options, m_settings);
    options.push_back(
        switchOption(u"all"_s, u"use every picture of a folder, not only base colors"_s, m_takesAll, true));
    return options;
}

QStringList MapsCommand::ownRemarks() const {
    return {
        u"From a folder, the base color of each material is used, found by the names of the files as "
        u"material "
        "--folder does, and every picture that belongs to no material; with --all, every file with the "
        "extension of an image format. Each becomes a set named after the file."_s};
}

std::optional<SetJob> MapsCommand::singleSet() const {
    if (m_sources.size() > 1 || QFileInfo(m_sources.first()).isDir()) {
        return std::nullopt;
    }
    return jobFor(m_sources.first(), parentDirectory());
}

BatchPlan MapsCommand::severalSets() const {
    BatchPlan plan;
    QSet<QString> known;
    const auto add = [&](const QString& path, const QUrl& parent) {
        // A file that is given twice is still one texture.
        if (const QString file = localFile(path).toLocalFile(); !known.contains(file)) {
            known.insert(file);
            plan.sets.push_back(jobFor(path, parent));
        }
    };
    for (const QString& source : m_sources) {
        if (!QFileInfo(source).isDir()) {
            add(source, parentDirectory());
            continue;
        }
        for (const TextureFolder& folder : textureFolders(source, plan)) {
            const BaseColors colors =
                m_takesAll ? BaseColors{folder.files, {}} : findBaseColors(folder, rules());
            plan.unused.insert(plan.unused.end(), colors.unused.begin(), colors.unused.end());
            for (const QString& file : colors.files) {
                add(file, parentDirectory(folder));
            }
        }
    }
    return plan;
}

SetJob MapsCommand::jobFor(const QString& path, const QUrl& parent) const {
    const QUrl source = localFile(path);
    NormalGeneratorSettings settings = m_settings;
    settings.materialName = materialName(fileStem(source));
    SetJob job;
    job.name = settings.safeMaterialName();
    job.inputs.push_back({u"source"_s, u"Source"_s, source.toLocalFile()});
    job.folder = fileIn(parent, job.name);
    job.files = plannedFiles(settings);
    job.settings = settingsRecord(settings);
    job.work = [settings, path, parent] {
        const TextureProcessor processor{};
        const TextureAsset texture = openTexture(processor, {path, {}});
        return ExportedSet{
            exportOpened([&] { return processor.exportGeneratedNormalSet(texture, settings, parent); })};
    };
    return job;
}

}  // namespace quarlin
