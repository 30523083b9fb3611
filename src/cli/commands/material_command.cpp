#include "cli/commands/material_command.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"
#include "cli/batch/planned_files.h"
#include "cli/batch/texture_loading.h"
#include "cli/options/file_options.h"
#include "cli/options/usage_error.h"
#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "imaging/files/file_names.h"
#include "matching/texture_name.h"
#include "model/material_set.h"
#include "model/texture_asset.h"

#include <QSet>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The suffixes of all slots, as part of a sentence.
QString suffixList() {
    QStringList slots;
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        slots += textureSuffixes(slot).join(u", "_s) + u" ("_s + title(slot) + u')';
    }
    return slots.join(u"; "_s);
}

/// Why the set can't be exported, as far as the names of its files show; empty if they show nothing.
QString refusalOf(const TextureSet& set) {
    if (!set.ambiguity.isEmpty()) {
        return CommandFailure(u"Load"_s, set.ambiguity).message();
    }
    return set.files.contains(TextureSlotKind::baseColor)
               ? QString()
               : CommandFailure(u"Export"_s, TextureProcessorError::missingBaseColor()).message();
}

}  // namespace

QString MaterialCommand::summary() const {
    return u"Packs texture files into material sets for Second Life and glTF."_s;
}

CommandOptions MaterialCommand::ownOptions() {
    const auto file = [this](const QString& option, TextureSlotKind slot, const QString& description) {
        return pathOption(option, u"FILE"_s, description, ValueKind::file, m_paths[slot]);
    };
    CommandOptions options{
        requiredUnless(u"folder"_s,
                       file(u"base-color"_s, TextureSlotKind::baseColor, u"the color of the surface"_s)),
        file(u"normal"_s, TextureSlotKind::normal, u"a tangent-space normal map"_s),
        file(u"occlusion"_s, TextureSlotKind::occlusion, u"an ambient occlusion map"_s),
        file(u"roughness"_s, TextureSlotKind::roughness, u"a roughness map, or a gloss map with --gloss"_s),
        file(u"metallic"_s, TextureSlotKind::metallic, u"a metallic map"_s),
        pathsOption(u"folder"_s, u"DIR"_s,
                    u"use the textures of a folder, matched to slots by the suffixes of their "
                    "names; can be given more than once"_s,
                    ValueKind::folder, m_folders),
        ownNameOption(),
        sizeOption(m_settings.outputResolution),
        switchOption(u"gloss"_s, u"the roughness file is a gloss map: invert it"_s,
                     m_settings.roughnessInputIsGloss, true),
        switchOption(u"flip-normal-green"_s, u"the normal map was made for DirectX: invert its green"_s,
                     m_settings.flipNormalGreen, true),
        switchOption(u"raw-data"_s,
                     u"take the samples of all maps but the base color as they are, without color profile "
                     "or gamma"_s,
                     m_keepsData, true),
        numberOption(u"default-occlusion"_s, u"occlusion without a file"_s, m_settings.defaultOcclusion,
                     fractionRange),
        numberOption(u"default-roughness"_s, u"roughness without a file"_s, m_settings.defaultRoughness,
                     fractionRange),
        numberOption(u"default-metallic"_s, u"metallic without a file"_s, m_settings.defaultMetallic,
                     fractionRange),
    };
    addFileOptions<MaterialFile>(options, m_settings);
    return options;
}

QStringList MaterialCommand::ownRemarks() const {
    return {
        u"The textures of a folder are matched to slots by the suffixes of their names, in upper or "
        "lower case and with any separator: "_s +
            suffixList() +
            u". The text before the suffix is the material's name; a folder can contain several "
            "materials. Resolutions (2k, 2048, 1024x1024) are ignored. A gloss map is inverted. The "
            "green of a normal map whose name says DirectX (NormalDX) is inverted too; if there is "
            "also one for OpenGL (NormalGL), that one is used instead."_s,
        u"A file whose name matches no slot is left out and reported. If two files match the same "
        "slot, their set fails."_s,
    };
}

std::optional<SetJob> MaterialCommand::singleSet() const {
    TextureSet set;
    for (const auto& [slot, path] : m_paths) {
        if (!path.isEmpty()) {
            set.files.emplace(slot, path);
        }
    }
    if (m_folders.isEmpty()) {
        set.material = fileStem(localFile(set.files.at(TextureSlotKind::baseColor)));
        return jobFor(set);
    }
    if (!set.files.empty()) {
        throw UsageError(u"--folder can't be combined with the file of a slot"_s);
    }
    return std::nullopt;
}

BatchPlan MaterialCommand::severalSets() const {
    BatchPlan plan;
    QSet<QString> known;
    for (const QString& path : m_folders) {
        for (const TextureFolder& folder : textureFolders(path, plan)) {
            if (known.contains(folder.path)) {
                continue;
            }
            known.insert(folder.path);
            const MatchedTextures matched = matchTextures(folder);
            plan.leftOut.insert(plan.leftOut.end(), matched.leftOut.begin(), matched.leftOut.end());
            for (const TextureSet& set : matched.sets) {
                plan.sets.push_back(jobFor(set));
            }
        }
    }
    return plan;
}

SetJob MaterialCommand::jobFor(const TextureSet& set) const {
    ConversionSettings settings = m_settings;
    settings.materialName = materialName(set.material);
    SetJob job;
    if (set.roughnessIsGloss) {
        settings.roughnessInputIsGloss = true;
        job.decisions += u"the roughness texture is a gloss map by its name, so it is inverted"_s;
    }
    if (set.normalIsDirectX) {
        settings.flipNormalGreen = true;
        job.decisions += u"the normal map is for DirectX by its name, so its green is inverted"_s;
    }
    job.name = settings.safeMaterialName();
    for (const auto& [slot, path] : set.files) {
        job.inputs.push_back({rawValue(slot), title(slot), localFile(path).toLocalFile()});
    }
    job.folder = fileIn(parentDirectory(), job.name);
    job.files = plannedFiles(settings, set.files.contains(TextureSlotKind::normal));
    job.refusal = refusalOf(set);
    job.work = [settings, files = set.files, parent = parentDirectory(), keepsData = m_keepsData] {
        const TextureProcessor processor{};
        const TextureMap textures = openTextures(processor, files, keepsData);
        return ExportedSet{
            exportOpened([&] { return processor.exportMaterialSet(textures, settings, parent); }),
            conversionNotes(textures)};
    };
    return job;
}

}  // namespace quarlin
