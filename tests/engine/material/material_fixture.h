#pragma once

#include "engine/base/texture_processor_error.h"
#include "engine/texture_processor.h"
#include "engine_errors.h"
#include "golden_text.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace quarlin {

using namespace Qt::StringLiterals;

/// A material to export: textures in the folder "in", exports to the folder "out", at the base color's size.
class MaterialJob : public InEnglish {
protected:
    MaterialJob() {
        folder.makeFolder(u"in"_s);
        folder.makeFolder(u"out"_s);
        settings.materialName = u"Brick"_s;
        settings.outputResolution = OutputResolution::matchBase;
    }

    QUrl input(const QString& name) const { return folder.url(u"in/"_s + name); }
    QUrl outputParent() const { return folder.url(u"out"_s); }
    QUrl output(const QString& name) const { return folder.url(u"out/Brick/"_s + name); }
    QStringList outputNames() const { return folder.names(u"out/Brick"_s); }

    /// Fills a slot with a file that contains the picture.
    void load(TextureSlotKind slot, const fixtures::Picture& picture) {
        const QUrl file = input(rawValue(slot) + u".png"_s);
        fixtures::writePng(file, picture);
        load(slot, file);
    }
    void load(TextureSlotKind slot, const QUrl& file) {
        textures.insert_or_assign(slot, processor.loadAsset(file));
    }
    /// Fills a slot with a file that does not exist any more.
    void loadMissing(TextureSlotKind slot) {
        load(slot, fixtures::smoothPicture(8, 8));
        QFile::remove(textures.at(slot).url.toLocalFile());
    }

    ExportResult exported() const { return processor.exportMaterialSet(textures, settings, outputParent()); }
    std::optional<TextureProcessorError> exportError() const {
        return errorOf([&] { return exported(); });
    }

    const TextureProcessor processor{};
    const fixtures::TemporaryFolder folder;
    TextureMap textures;
    ConversionSettings settings;
};

}  // namespace quarlin
