#include "cli/commands/material_command.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"
#include "cli/batch/planned_files.h"
#include "cli/batch/settings_record.h"
#include "cli/batch/texture_loading.h"
#include "cli/options/file_options.h"
#include "cli/options/texture_options.h"
#include "cli/options/usage_error.h"
#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "imaging/files/file_names.h"
#include "matching/map_words.h"
#include "model/material_set.h"
#include "model/texture_asset.h"

#include <QSet>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The words of the maps that fill slots, as part of a sentence.
QString wordList() {
    QStringList kinds;
    for (const MapKind kind : allCases<MapKind>()) {
        if (isUsed(kind)) {
            kinds += MapWords::common(kind).join(u", "_s) + u" ("_s + rawValue(kind) + u')';
        }
    }
    return kinds.join(u"; "_s);
}

/// The packed maps, as part of a sentence: "green of brick_ORM.png (Roughness / Gloss)".
QStringList channelDecisions(const MaterialInputPaths& files) {
    QStringList decisions;
    for (const auto& [slot, input] : files) {
        if (input.channel) {
            decisions += title(slot) + u" is the "_s + title(*input.channel) + u" channel of "_s +
                         lastPathComponent(localFile(input.path));
        }
    }
    return decisions;
}

/// Why the set can't be exported, as far as the names of its files show; empty if they show nothing.
QString refusalOf(const TextureSet& set) {
    if (!set.refusal.isEmpty()) {
        return CommandFailure(u"Load"_s, set.refusal).message();
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
        return pathOption(option, u"FILE"_s, description, ValueKind::file, m_inputs[slot].path);
    };
    const auto channel = [this](const QString& option, TextureSlotKind slot, const QString& description) {
        return channelOption(option, description + u"; FILE:g takes its green channel"_s, m_inputs[slot]);
    };
    CommandOptions options{
        requiredUnless(u"folder"_s,
                       file(u"base-color"_s, TextureSlotKind::baseColor, u"the color of the surface"_s)),
        file(u"normal"_s, TextureSlotKind::normal, u"a tangent-space normal map"_s),
        channel(u"occlusion"_s, TextureSlotKind::occlusion, u"an ambient occlusion map"_s),
        channel(u"roughness"_s, TextureSlotKind::roughness,
                u"a roughness map, or a gloss map with --gloss"_s),
        channel(u"metallic"_s, TextureSlotKind::metallic, u"a metallic map"_s),
        pathsOption(u"folder"_s, u"DIR"_s,
                    u"use the textures of a folder, matched to slots by their names; can be given more than "
                    "once"_s,
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
        u"Of a file for occlusion, roughness or metallic, the luminance is used; with :r, :g, :b or :a "
        u"behind "
        "it, the samples of that channel as they are."_s,
        u"The textures of a folder are matched to slots by the words at the end of their names, in upper or "
        "lower case and with any separator: "_s +
            wordList() +
            u". The text before is the material's name; a folder can contain several materials. Words about "
            "the file (2k, 16bit, sRGB, v2, JPG) are ignored. A file that is named like the material alone "
            "is "
            "its base color. Words that also describe surfaces (metal), and letters, count only beside other "
            "files of the same material. A gloss map is inverted, and so is the green of a normal map whose "
            "name says DirectX (NormalDX). Of packed maps, the channels are used."_s,
        u"If several files fit a slot, --prefer decides. By default it is, in this order: a map of its own "
        "rather than a packed one, the larger, a lossless format, OpenGL, roughness, the newer version, the "
        "first variant, the first name. UDIM tiles are not supported."_s,
    };
}

std::optional<SetJob> MaterialCommand::singleSet() const {
    TextureSet set;
    for (const auto& [slot, input] : m_inputs) {
        if (!input.path.isEmpty()) {
            set.files.emplace(slot, input);
        }
    }
    if (m_folders.isEmpty()) {
        set.material = fileStem(localFile(set.files.at(TextureSlotKind::baseColor).path));
        return jobFor(set, parentDirectory());
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
            const MatchedTextures matched = matchTextures(folder, rules());
            plan.unused.insert(plan.unused.end(), matched.unused.begin(), matched.unused.end());
            for (const TextureSet& set : matched.sets) {
                plan.sets.push_back(jobFor(set, parentDirectory(folder)));
            }
        }
    }
    return plan;
}

SetJob MaterialCommand::jobFor(const TextureSet& set, const QUrl& parent) const {
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
    job.decisions += channelDecisions(set.files);
    job.name = settings.safeMaterialName();
    for (const auto& [slot, input] : set.files) {
        job.inputs.push_back({rawValue(slot), title(slot), localFile(input.path).toLocalFile(),
                              input.channel ? rawValue(*input.channel) : QString()});
    }
    job.folder = fileIn(parent, job.name);
    job.files = plannedFiles(settings, set.files.contains(TextureSlotKind::normal));
    job.refusal = refusalOf(set);
    job.settings = settingsRecord(settings);
    job.work = [settings, files = set.files, parent, keepsData = m_keepsData] {
        const TextureProcessor processor{};
        const TextureMap textures = openTextures(processor, files, keepsData);
        return ExportedSet{
            exportOpened([&] { return processor.exportMaterialSet(textures, settings, parent); }),
            conversionNotes(textures)};
    };
    return job;
}

}  // namespace quarlin
