#pragma once

#include "engine/texture_processor.h"
#include "golden_text.h"
#include "model/export_result.h"
#include "model/texture_asset.h"
#include "picture.h"
#include "png_files.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <map>

namespace quarlin {

using namespace Qt::StringLiterals;

/// One of the two tools' exports, of textures that are loaded or only opened before, for tests that apply to
/// all.
struct ExportKind {
    bool isMaterial;
    bool isLoaded;
};

inline void PrintTo(ExportKind kind, std::ostream* out) {
    *out << (kind.isLoaded ? "" : "Opened") << (kind.isMaterial ? "Material" : "Maps");
}

inline auto allExportKinds() {
    return testing::Values(ExportKind{true, true}, ExportKind{false, true}, ExportKind{true, false},
                           ExportKind{false, false});
}

/// A full set of one kind, named Brick, exported from the folder "in" to the folder "out".
class EitherExport : public InEnglish, public testing::WithParamInterface<ExportKind> {
protected:
    EitherExport();

    /// Replaces the inputs with pictures that differ for every `seed`.
    void loadPictures(std::uint64_t seed);

    /// Reads a file as this kind of export expects its textures.
    TextureAsset texture(const QUrl& file) const;

    ExportResult exported() const;
    /// The message of the failed export; empty if it succeeds.
    std::string failure() const;

    /// The names of the set in writing order.
    QStringList setNames() const;
    /// The messages of a failure to write the file of the set: before it could be opened, and after.
    std::string cannotCreate(const QString& name) const;
    std::string cannotWrite(const QString& name) const;

    QString setPath() const { return folder.path(u"out/"_s + name); }
    /// The files of the set's folder by name, including hidden ones.
    std::map<QString, QByteArray> files() const;

    QString name = u"Brick"_s;
    const TextureProcessor processor{};
    const fixtures::TemporaryFolder folder;
    TextureMap textures;
};

}  // namespace quarlin
