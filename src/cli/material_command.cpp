#include "material_command.h"

#include "command_failure.h"
#include "file_names.h"
#include "local_file.h"
#include "planned_files.h"
#include "texture_loading.h"
#include "texture_name.h"
#include "usage_error.h"

#include <QSet>

namespace quarlin {

namespace {

/// The suffixes of every slot, as a sentence lists them.
QString suffixList() {
    QStringList slots;
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        slots += textureSuffixes(slot).join(QStringLiteral(", ")) + QStringLiteral(" (") + title(slot) + u')';
    }
    return slots.join(QStringLiteral("; "));
}

/// Why the set can't be exported, as far as the names of its files tell.
QString refusalOf(const TextureSet& set) {
    if (!set.ambiguity.isEmpty()) {
        return CommandFailure(QStringLiteral("Load"), set.ambiguity).message();
    }
    return set.files.contains(TextureSlotKind::baseColor)
               ? QString()
               : CommandFailure(QStringLiteral("Export"), TextureProcessorError::missingBaseColor())
                     .message();
}

}  // namespace

QString MaterialCommand::summary() const {
    return QStringLiteral("Packs texture files into material sets for Second Life and glTF.");
}

CommandOptions MaterialCommand::ownOptions() {
    const auto file = [this](const QString& option, TextureSlotKind slot, const QString& description) {
        return pathOption(option, QStringLiteral("FILE"), description, ValueKind::file, m_paths[slot]);
    };
    return {
        requiredUnless(QStringLiteral("folder"),
                       file(QStringLiteral("base-color"), TextureSlotKind::baseColor,
                            QStringLiteral("the colour of the surface"))),
        file(QStringLiteral("normal"), TextureSlotKind::normal, QStringLiteral("a tangent-space normal map")),
        file(QStringLiteral("occlusion"), TextureSlotKind::occlusion, QStringLiteral("ambient occlusion")),
        file(QStringLiteral("roughness"), TextureSlotKind::roughness,
             QStringLiteral("roughness, or gloss with --gloss")),
        file(QStringLiteral("metallic"), TextureSlotKind::metallic, QStringLiteral("metallic")),
        pathsOption(QStringLiteral("folder"), QStringLiteral("DIR"),
                    QStringLiteral("take the textures of a folder, matched to slots by the suffixes of their "
                                   "names; can be given more than once"),
                    ValueKind::folder, m_folders),
        ownNameOption(),
        sizeOption(m_settings.outputResolution),
        switchOption(QStringLiteral("gloss"), QStringLiteral("the roughness file holds gloss: invert it"),
                     m_settings.roughnessInputIsGloss, true),
        switchOption(QStringLiteral("flip-normal-green"),
                     QStringLiteral("the normal map is of the DirectX kind: invert its green"),
                     m_settings.flipNormalGreen, true),
        numberOption(QStringLiteral("default-occlusion"), QStringLiteral("occlusion without a file"),
                     m_settings.defaultOcclusion, fractionRange),
        numberOption(QStringLiteral("default-roughness"), QStringLiteral("roughness without a file"),
                     m_settings.defaultRoughness, fractionRange),
        numberOption(QStringLiteral("default-metallic"), QStringLiteral("metallic without a file"),
                     m_settings.defaultMetallic, fractionRange),
        switchOption(QStringLiteral("no-gltf"), QStringLiteral("write no .gltf material"),
                     m_settings.exportGLTF, false),
        switchOption(QStringLiteral("no-notes"), QStringLiteral("write no notes"), m_settings.exportNotes,
                     false),
    };
}

QStringList MaterialCommand::ownRemarks() const {
    return {
        QStringLiteral(
            "The textures of a folder are matched by what their names end in, in any case and with any "
            "separator: ") +
            suffixList() +
            QStringLiteral(
                ". What stands before the suffix is the material's name; a folder can hold several "
                "materials. Resolutions (2k, 2048, 1024x1024) are passed over. A gloss file is "
                "inverted, and so is the green of a normal map that is named as of the DirectX kind "
                "(NormalDX); with one of the OpenGL kind (NormalGL) beside it that one is taken."),
        QStringLiteral(
            "A file whose name tells no slot is left out and reported. Two files for one slot are not "
            "chosen between: their set fails."),
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
        throw UsageError(QStringLiteral("--folder can't be given together with the file of a slot"));
    }
    return std::nullopt;
}

BatchPlan MaterialCommand::severalSets() const {
    BatchPlan plan;
    QSet<QString> known;
    for (const QString& path : m_folders) {
        try {
            for (const TextureFolder& folder : findTextures(path, search())) {
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
        } catch (const CommandFailure& failure) {
            plan.sets.push_back(refusedJob(path, failure.message()));
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
        job.decisions += QStringLiteral("the roughness texture is gloss by its name, and inverted");
    }
    if (set.normalIsDirectX) {
        settings.flipNormalGreen = true;
        job.decisions +=
            QStringLiteral("the normal map is of the DirectX kind by its name; its green is inverted");
    }
    job.name = settings.safeMaterialName();
    for (const auto& [slot, path] : set.files) {
        job.inputs.push_back({rawValue(slot), title(slot), localFile(path).toLocalFile()});
    }
    job.folder = fileIn(parentDirectory(), job.name);
    job.files = plannedFiles(settings, set.files.contains(TextureSlotKind::normal));
    job.refusal = refusalOf(set);
    job.work = [settings, files = set.files, parent = parentDirectory()] {
        const TextureProcessor processor{};
        const TextureMap textures = loadTextures(processor, files);
        return failingAs(QStringLiteral("Export"),
                         [&] { return processor.exportMaterialSet(textures, settings, parent); });
    };
    return job;
}

}  // namespace quarlin
