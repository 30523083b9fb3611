#include "export_kind.h"

#include "engine/base/texture_processor_error.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/output_resolution.h"
#include "model/texture_slot_kind.h"
#include "set_files.h"

namespace quarlin {

using namespace Qt::StringLiterals;

using namespace fixtures;

EitherExport::EitherExport() {
    folder.makeFolder(u"in"_s);
    folder.makeFolder(u"out"_s);
    loadPictures(1);
}

void EitherExport::loadPictures(std::uint64_t seed) {
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        const QUrl file = folder.url(u"in/"_s + rawValue(slot) + u".png"_s);
        writePng(file, noisePicture(24, 24, seed * 10 + static_cast<std::uint64_t>(slot)), false);
        textures.insert_or_assign(slot, texture(file));
    }
}

TextureAsset EitherExport::texture(const QUrl& file) const {
    return GetParam().isLoaded ? processor.loadAsset(file) : processor.openAsset(file);
}

ExportResult EitherExport::exported() const {
    const QUrl parent = folder.url(u"out"_s);
    if (GetParam().isMaterial) {
        ConversionSettings settings;
        settings.materialName = name;
        settings.outputResolution = OutputResolution::matchBase;
        return processor.exportMaterialSet(textures, settings, parent);
    }
    NormalGeneratorSettings settings;
    settings.materialName = name;
    settings.outputResolution = OutputResolution::matchBase;
    return processor.exportGeneratedNormalSet(textures.at(TextureSlotKind::baseColor), settings, parent);
}

std::string EitherExport::failure() const {
    try {
        exported();
        return {};
    } catch (const EngineError& error) {
        return error.errorDescription().toStdString();
    }
}

QStringList EitherExport::setNames() const {
    return GetParam().isMaterial ? namesOf(materialFiles(), name) : namesOf(generatedFiles(), name);
}

std::string EitherExport::cannotCreate(const QString& file) const {
    const bool isImage = file.endsWith(u".png"_s);
    return (isImage ? "Could not create PNG image: " : "Could not write file: ") + file.toStdString();
}

std::string EitherExport::cannotWrite(const QString& file) const {
    const bool isImage = file.endsWith(u".png"_s);
    return (isImage ? "Could not write PNG: " : "Could not write file: ") + file.toStdString();
}

std::map<QString, QByteArray> EitherExport::files() const {
    std::map<QString, QByteArray> files;
    for (const QString& file : folder.names(u"out/"_s + name)) {
        files[file] = readFile(folder.url(u"out/"_s + name + u'/' + file));
    }
    return files;
}

}  // namespace quarlin
