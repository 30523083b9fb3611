// The reported error, its text, and the files on the disk afterwards.

#include "engine/base/texture_processor_error.h"
#include "limited_writing.h"
#include "material_fixture.h"
#include "model/texture_slot_kind.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialExportFailure : public MaterialJob {
protected:
    MaterialExportFailure() {
        load(TextureSlotKind::baseColor, smoothPicture(8, 8));
        load(TextureSlotKind::normal, smoothPicture(8, 8));
        load(TextureSlotKind::occlusion, smoothPicture(8, 8));
        load(TextureSlotKind::roughness, smoothPicture(8, 8));
        load(TextureSlotKind::metallic, smoothPicture(8, 8));
    }

    static QStringList names(const char* commaSeparated) {
        return QString::fromLatin1(commaSeparated).split(u',');
    }
};

TEST_F(MaterialExportFailure, WithoutBaseColorNothingIsCreated) {
    textures.erase(TextureSlotKind::baseColor);
    EXPECT_EQ(exportError(), TextureProcessorError::missingBaseColor());
    EXPECT_EQ(exportError()->errorDescription(), u"Base Color texture is required."_s);
    EXPECT_EQ(folder.names(u"out"_s), QStringList());
}

TEST_F(MaterialExportFailure, AMissingBaseColorComesBeforeAFolderThatCanNotBeMade) {
    textures.erase(TextureSlotKind::baseColor);
    writeFile(folder.url(u"out/Brick"_s), "in the way");
    EXPECT_EQ(exportError(), TextureProcessorError::missingBaseColor());
}

TEST_F(MaterialExportFailure, AnUnreadableBaseColorLeavesAnEmptyFolder) {
    loadMissing(TextureSlotKind::baseColor);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(u"baseColor.png"_s)));
    EXPECT_EQ(exportError()->errorDescription(), u"Could not read image: baseColor.png"_s);
    EXPECT_TRUE(QFileInfo(folder.path(u"out/Brick"_s)).isDir());
    EXPECT_EQ(outputNames(), QStringList());
}

TEST_F(MaterialExportFailure, AnUnreadableChannelLeavesTheBaseColorAlone) {
    for (const TextureSlotKind slot :
         {TextureSlotKind::metallic, TextureSlotKind::roughness, TextureSlotKind::occlusion}) {
        loadMissing(slot);
        QDir(folder.path(u"out/Brick"_s)).removeRecursively();
        EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(textures.at(slot).url));
        EXPECT_EQ(outputNames(), names("Brick_BaseColor.png"));
    }
}

TEST_F(MaterialExportFailure, AnUnreadableNormalMapLeavesBaseColorAndOrm) {
    loadMissing(TextureSlotKind::normal);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(u"normal.png"_s)));
    EXPECT_EQ(outputNames(), names("Brick_BaseColor.png,Brick_ORM.png"));
}

TEST_F(MaterialExportFailure, OfSeveralUnreadableInputsTheFirstInWritingOrderIsReported) {
    loadMissing(TextureSlotKind::normal);
    loadMissing(TextureSlotKind::metallic);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(u"metallic.png"_s)));
    loadMissing(TextureSlotKind::roughness);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(u"roughness.png"_s)));
    loadMissing(TextureSlotKind::occlusion);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(u"occlusion.png"_s)));
    EXPECT_EQ(outputNames(), names("Brick_BaseColor.png"));
    loadMissing(TextureSlotKind::baseColor);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(u"baseColor.png"_s)));
}

TEST_F(MaterialExportFailure, AnInputCutOffSinceItWasLoadedIsUnreadable) {
    const QByteArray whole = readFile(input(u"occlusion.png"_s));
    writeFile(input(u"occlusion.png"_s), whole.first(whole.size() / 2));
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(u"occlusion.png"_s)));
    EXPECT_EQ(outputNames(), names("Brick_BaseColor.png"));
}

TEST_F(MaterialExportFailure, AFailureKeepsAnOlderSet) {
    exported();
    const QByteArray orm = readFile(output(u"Brick_ORM.png"_s));
    const QByteArray normal = readFile(output(u"Brick_Normal.png"_s));
    loadMissing(TextureSlotKind::occlusion);
    EXPECT_TRUE(exportError());
    EXPECT_EQ(readFile(output(u"Brick_ORM.png"_s)), orm);
    EXPECT_EQ(readFile(output(u"Brick_Normal.png"_s)), normal);
    EXPECT_EQ(outputNames().size(), 5);
}

TEST_F(MaterialExportFailure, AFolderInThePlaceOfAnImageStopsThere) {
    struct Blocked {
        const char* name;
        const char* before;
    };
    for (const Blocked& blocked :
         {Blocked{"Brick_BaseColor.png", ""}, Blocked{"Brick_ORM.png", "Brick_BaseColor.png"},
          Blocked{"Brick_Normal.png", "Brick_BaseColor.png,Brick_ORM.png"}}) {
        SCOPED_TRACE(blocked.name);
        QDir(folder.path(u"out/Brick"_s)).removeRecursively();
        const QString name = QString::fromLatin1(blocked.name);
        folder.makeFolder(u"out/Brick/"_s + name);
        EXPECT_EQ(exportError(), TextureProcessorError::cannotCreatePNG(output(name)));
        EXPECT_EQ(exportError()->errorDescription(), u"Could not create PNG image: "_s + name);
        QStringList expected = names(blocked.before);
        expected.removeAll(QString());
        expected << name;
        expected.sort();
        EXPECT_EQ(outputNames(), expected);
    }
}

TEST_F(MaterialExportFailure, AFolderInThePlaceOfTheGltfStopsBeforeTheNotes) {
    folder.makeFolder(u"out/Brick/Brick.gltf"_s);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotWriteText(output(u"Brick.gltf"_s)));
    EXPECT_EQ(exportError()->errorDescription(), u"Could not write file: Brick.gltf"_s);
    EXPECT_EQ(outputNames(), names("Brick.gltf,Brick_BaseColor.png,Brick_Normal.png,Brick_ORM.png"));
}

TEST_F(MaterialExportFailure, AFolderInThePlaceOfTheNotesIsTheLastFailure) {
    folder.makeFolder(u"out/Brick/Brick_SL_PBR_notes.txt"_s);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotWriteText(output(u"Brick_SL_PBR_notes.txt"_s)));
    EXPECT_EQ(exportError()->errorDescription(), u"Could not write file: Brick_SL_PBR_notes.txt"_s);
    EXPECT_EQ(outputNames(), names("Brick.gltf,Brick_BaseColor.png,Brick_Normal.png,Brick_ORM.png,"
                                   "Brick_SL_PBR_notes.txt"));
}

TEST_F(MaterialExportFailure, WritingComesBeforeReadingTheNextInput) {
    folder.makeFolder(u"out/Brick/Brick_BaseColor.png"_s);
    loadMissing(TextureSlotKind::occlusion);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotCreatePNG(output(u"Brick_BaseColor.png"_s)));
}

TEST_F(MaterialExportFailure, WritingTheOrmComesBeforeReadingTheNormalMap) {
    folder.makeFolder(u"out/Brick/Brick_ORM.png"_s);
    loadMissing(TextureSlotKind::normal);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotCreatePNG(output(u"Brick_ORM.png"_s)));
}

TEST_F(MaterialExportFailure, AFullDiskKeepsTheOlderImages) {
    exported();
    const QByteArray before = readFile(output(u"Brick_BaseColor.png"_s));
    load(TextureSlotKind::baseColor, noisePicture(64, 64, 1));
    {
        const FullDisk limit(1000);
        EXPECT_EQ(exportError(), TextureProcessorError::cannotWritePNG(output(u"Brick_BaseColor.png"_s)));
    }
    EXPECT_EQ(exportError(), std::nullopt);
    EXPECT_NE(readFile(output(u"Brick_BaseColor.png"_s)), before);
    EXPECT_EQ(outputNames().size(), 5);
}

TEST_F(MaterialExportFailure, AFullDiskKeepsTheOlderTexts) {
    textures.erase(TextureSlotKind::occlusion);
    textures.erase(TextureSlotKind::roughness);
    textures.erase(TextureSlotKind::metallic);
    load(TextureSlotKind::baseColor, constantPicture(2, 2, {1, 2, 3, 255}));
    load(TextureSlotKind::normal, constantPicture(2, 2, {128, 128, 255, 255}));
    exported();
    const QByteArray gltf = readFile(output(u"Brick.gltf"_s));
    const QByteArray notes = readFile(output(u"Brick_SL_PBR_notes.txt"_s));
    ASSERT_GT(gltf.size(), 400);
    ASSERT_LT(readFile(output(u"Brick_Normal.png"_s)).size(), 400);
    {
        const FullDisk limit(400);
        EXPECT_EQ(exportError(), TextureProcessorError::cannotWriteText(output(u"Brick.gltf"_s)));
        settings.exportGLTF = false;
        EXPECT_EQ(exportError(), TextureProcessorError::cannotWriteText(output(u"Brick_SL_PBR_notes.txt"_s)));
    }
    EXPECT_EQ(readFile(output(u"Brick.gltf"_s)), gltf);
    EXPECT_EQ(readFile(output(u"Brick_SL_PBR_notes.txt"_s)), notes);
    EXPECT_EQ(outputNames().size(), 5);
}

/// Expects the error of the file system for the material's folder.
class UncreatableFolder : public MaterialExportFailure {
protected:
    void expectFileSystemError(const QUrl& parent) const {
        try {
            processor.exportMaterialSet(textures, settings, parent);
            ADD_FAILURE() << "the export succeeded";
        } catch (const TextureProcessorError& error) {
            ADD_FAILURE() << "the engine's own error: " << error.errorDescription().toStdString();
        } catch (const EngineError& error) {
            EXPECT_FALSE(error.errorDescription().isEmpty());
        }
    }
};

TEST_F(UncreatableFolder, AFileInItsPlaceIsTheFileSystemsError) {
    writeFile(folder.url(u"out/Brick"_s), "in the way");
    expectFileSystemError(outputParent());
    EXPECT_EQ(readFile(folder.url(u"out/Brick"_s)), "in the way");
}

TEST_F(UncreatableFolder, AFileInThePlaceOfAParentIsTheFileSystemsError) {
    writeFile(folder.url(u"out/file"_s), "in the way");
    expectFileSystemError(folder.url(u"out/file"_s));
    expectFileSystemError(folder.url(u"out/file/further/down"_s));
}

TEST_F(UncreatableFolder, AReadOnlyParentIsTheFileSystemsError) {
    const QByteArray path = QFile::encodeName(folder.path(u"out"_s));
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    ASSERT_EQ(chmod(path.constData(), 0555), 0);
    const OrdinaryUser user;
    ASSERT_TRUE(user.works());
    expectFileSystemError(outputParent());
}

}  // namespace
