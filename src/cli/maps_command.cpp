#include "maps_command.h"

#include "command_failure.h"
#include "file_names.h"
#include "local_file.h"
#include "planned_files.h"
#include "texture_loading.h"

#include <QFileInfo>
#include <QSet>

namespace quarlin {

QString MapsCommand::summary() const {
    return QStringLiteral(
        "Generates normal, height, roughness, gloss, metallic and occlusion maps from a texture.");
}

CommandOptions MapsCommand::ownOptions() {
    const auto without = [](const QString& file, const QString& description, bool& target) {
        return switchOption(QStringLiteral("no-") + file, QStringLiteral("write no ") + description, target,
                            false);
    };
    return {
        required(pathsOption(QStringLiteral("source"), QStringLiteral("FILE"),
                             QStringLiteral("the texture that the maps are estimated from, or a folder of "
                                            "them; can be given more than once"),
                             ValueKind::fileOrFolder, m_sources)),
        ownNameOption(),
        sizeOption(m_settings.outputResolution),
        numberOption(QStringLiteral("strength"), QStringLiteral("steepness of the normal map"),
                     m_settings.strength, strengthRange),
        countOption(QStringLiteral("smoothing"), QStringLiteral("blur passes over the height field"),
                    m_settings.smoothing, smoothingRange),
        switchOption(QStringLiteral("invert-height"), QStringLiteral("dark is high"), m_settings.invertHeight,
                     true),
        switchOption(QStringLiteral("flip-green"), QStringLiteral("invert the green of the normal map"),
                     m_settings.flipGreen, true),
        numberOption(QStringLiteral("roughness-min"), QStringLiteral("one end of the roughness"),
                     m_settings.roughnessMin, fractionRange),
        numberOption(QStringLiteral("roughness-max"), QStringLiteral("the other end of the roughness"),
                     m_settings.roughnessMax, fractionRange),
        numberOption(QStringLiteral("metallic-strength"), QStringLiteral("how much is taken for metal"),
                     m_settings.metallicStrength, fractionRange),
        numberOption(QStringLiteral("ao-strength"), QStringLiteral("depth of the ambient occlusion"),
                     m_settings.aoStrength, fractionRange),
        without(QStringLiteral("height"), QStringLiteral("height map"), m_settings.exportHeight),
        without(QStringLiteral("roughness"), QStringLiteral("roughness map"), m_settings.exportRoughness),
        without(QStringLiteral("gloss"), QStringLiteral("gloss map"), m_settings.exportGloss),
        without(QStringLiteral("metallic"), QStringLiteral("metallic map"), m_settings.exportMetallic),
        without(QStringLiteral("ao"), QStringLiteral("ambient occlusion map"), m_settings.exportAO),
        without(QStringLiteral("orm"), QStringLiteral("packed ORM map"), m_settings.exportORM),
        without(QStringLiteral("gltf"), QStringLiteral(".gltf material"), m_settings.exportGLTF),
        without(QStringLiteral("notes"), QStringLiteral("notes"), m_settings.exportNotes),
    };
}

QStringList MapsCommand::ownRemarks() const {
    return {QStringLiteral(
        "Of a folder every image file is taken, told by its extension: one set each, named after the file.")};
}

std::optional<SetJob> MapsCommand::singleSet() const {
    if (m_sources.size() > 1 || QFileInfo(m_sources.first()).isDir()) {
        return std::nullopt;
    }
    return jobFor(m_sources.first());
}

BatchPlan MapsCommand::severalSets() const {
    BatchPlan plan;
    QSet<QString> known;
    const auto add = [&](const QString& path) {
        // A file that is named twice is still one texture.
        if (const QString file = localFile(path).toLocalFile(); !known.contains(file)) {
            known.insert(file);
            plan.sets.push_back(jobFor(path));
        }
    };
    for (const QString& source : m_sources) {
        if (!QFileInfo(source).isDir()) {
            add(source);
            continue;
        }
        try {
            for (const TextureFolder& folder : findTextures(source, search())) {
                for (const QString& file : folder.files) {
                    add(file);
                }
            }
        } catch (const CommandFailure& failure) {
            plan.sets.push_back(refusedJob(source, failure.message()));
        }
    }
    return plan;
}

SetJob MapsCommand::jobFor(const QString& path) const {
    const QUrl source = localFile(path);
    NormalGeneratorSettings settings = m_settings;
    settings.materialName = materialName(fileStem(source));
    SetJob job;
    job.name = settings.safeMaterialName();
    job.inputs.push_back({QStringLiteral("source"), QStringLiteral("Source"), source.toLocalFile()});
    job.folder = fileIn(parentDirectory(), job.name);
    job.files = plannedFiles(settings);
    job.work = [settings, path, parent = parentDirectory()] {
        const TextureProcessor processor{};
        const TextureAsset texture = loadTexture(processor, path);
        return failingAs(QStringLiteral("Export"),
                         [&] { return processor.exportGeneratedNormalSet(texture, settings, parent); });
    };
    return job;
}

}  // namespace quarlin
