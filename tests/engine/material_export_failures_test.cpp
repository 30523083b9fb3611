// Which error is reported, with which text, and what is on disk after it.

#include "limited_writing.h"
#include "material_fixture.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

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
    EXPECT_EQ(exportError()->errorDescription(), QStringLiteral("Base Color texture is required."));
    EXPECT_EQ(folder.names(QStringLiteral("out")), QStringList());
}

TEST_F(MaterialExportFailure, AMissingBaseColorComesBeforeAFolderThatCanNotBeMade) {
    textures.erase(TextureSlotKind::baseColor);
    writeFile(folder.url(QStringLiteral("out/Brick")), "in the way");
    EXPECT_EQ(exportError(), TextureProcessorError::missingBaseColor());
}

TEST_F(MaterialExportFailure, AnUnreadableBaseColorLeavesAnEmptyFolder) {
    loadMissing(TextureSlotKind::baseColor);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(QStringLiteral("baseColor.png"))));
    EXPECT_EQ(exportError()->errorDescription(), QStringLiteral("Could not read image: baseColor.png"));
    EXPECT_TRUE(QFileInfo(folder.path(QStringLiteral("out/Brick"))).isDir());
    EXPECT_EQ(outputNames(), QStringList());
}

TEST_F(MaterialExportFailure, AnUnreadableChannelLeavesTheBaseColorAlone) {
    for (const TextureSlotKind slot :
         {TextureSlotKind::metallic, TextureSlotKind::roughness, TextureSlotKind::occlusion}) {
        loadMissing(slot);
        QDir(folder.path(QStringLiteral("out/Brick"))).removeRecursively();
        EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(textures.at(slot).url));
        EXPECT_EQ(outputNames(), names("Brick_BaseColor.png"));
    }
}

TEST_F(MaterialExportFailure, AnUnreadableNormalMapLeavesBaseColorAndOrm) {
    loadMissing(TextureSlotKind::normal);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(QStringLiteral("normal.png"))));
    EXPECT_EQ(outputNames(), names("Brick_BaseColor.png,Brick_ORM.png"));
}

TEST_F(MaterialExportFailure, OfSeveralUnreadableInputsTheFirstInWritingOrderIsReported) {
    loadMissing(TextureSlotKind::normal);
    loadMissing(TextureSlotKind::metallic);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(QStringLiteral("metallic.png"))));
    loadMissing(TextureSlotKind::roughness);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(QStringLiteral("roughness.png"))));
    loadMissing(TextureSlotKind::occlusion);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(QStringLiteral("occlusion.png"))));
    EXPECT_EQ(outputNames(), names("Brick_BaseColor.png"));
    loadMissing(TextureSlotKind::baseColor);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(QStringLiteral("baseColor.png"))));
}

TEST_F(MaterialExportFailure, AnInputCutOffSinceItWasLoadedIsUnreadable) {
    const QByteArray whole = readFile(input(QStringLiteral("occlusion.png")));
    writeFile(input(QStringLiteral("occlusion.png")), whole.first(whole.size() / 2));
    EXPECT_EQ(exportError(), TextureProcessorError::cannotReadImage(input(QStringLiteral("occlusion.png"))));
    EXPECT_EQ(outputNames(), names("Brick_BaseColor.png"));
}

TEST_F(MaterialExportFailure, AFailureKeepsAnOlderSet) {
    exported();
    const QByteArray orm = readFile(output(QStringLiteral("Brick_ORM.png")));
    const QByteArray normal = readFile(output(QStringLiteral("Brick_Normal.png")));
    loadMissing(TextureSlotKind::occlusion);
    EXPECT_TRUE(exportError());
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_ORM.png"))), orm);
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_Normal.png"))), normal);
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
        QDir(folder.path(QStringLiteral("out/Brick"))).removeRecursively();
        const QString name = QString::fromLatin1(blocked.name);
        folder.makeFolder(QStringLiteral("out/Brick/") + name);
        EXPECT_EQ(exportError(), TextureProcessorError::cannotCreatePNG(output(name)));
        EXPECT_EQ(exportError()->errorDescription(), QStringLiteral("Could not create PNG image: ") + name);
        QStringList expected = names(blocked.before);
        expected.removeAll(QString());
        expected << name;
        expected.sort();
        EXPECT_EQ(outputNames(), expected);
    }
}

TEST_F(MaterialExportFailure, AFolderInThePlaceOfTheGltfStopsBeforeTheNotes) {
    folder.makeFolder(QStringLiteral("out/Brick/Brick.gltf"));
    EXPECT_EQ(exportError(), TextureProcessorError::cannotWriteText(output(QStringLiteral("Brick.gltf"))));
    EXPECT_EQ(exportError()->errorDescription(), QStringLiteral("Could not write file: Brick.gltf"));
    EXPECT_EQ(outputNames(), names("Brick.gltf,Brick_BaseColor.png,Brick_Normal.png,Brick_ORM.png"));
}

TEST_F(MaterialExportFailure, AFolderInThePlaceOfTheNotesIsTheLastFailure) {
    folder.makeFolder(QStringLiteral("out/Brick/Brick_SL_PBR_notes.txt"));
    EXPECT_EQ(exportError(),
              TextureProcessorError::cannotWriteText(output(QStringLiteral("Brick_SL_PBR_notes.txt"))));
    EXPECT_EQ(exportError()->errorDescription(),
              QStringLiteral("Could not write file: Brick_SL_PBR_notes.txt"));
    EXPECT_EQ(outputNames(), names("Brick.gltf,Brick_BaseColor.png,Brick_Normal.png,Brick_ORM.png,"
                                   "Brick_SL_PBR_notes.txt"));
}

TEST_F(MaterialExportFailure, WritingComesBeforeReadingTheNextInput) {
    folder.makeFolder(QStringLiteral("out/Brick/Brick_BaseColor.png"));
    loadMissing(TextureSlotKind::occlusion);
    EXPECT_EQ(exportError(),
              TextureProcessorError::cannotCreatePNG(output(QStringLiteral("Brick_BaseColor.png"))));
}

TEST_F(MaterialExportFailure, WritingTheOrmComesBeforeReadingTheNormalMap) {
    folder.makeFolder(QStringLiteral("out/Brick/Brick_ORM.png"));
    loadMissing(TextureSlotKind::normal);
    EXPECT_EQ(exportError(), TextureProcessorError::cannotCreatePNG(output(QStringLiteral("Brick_ORM.png"))));
}

TEST_F(MaterialExportFailure, AFullDiskKeepsTheOlderImages) {
    exported();
    const QByteArray before = readFile(output(QStringLiteral("Brick_BaseColor.png")));
    load(TextureSlotKind::baseColor, noisePicture(64, 64, 1));
    {
        const FullDisk limit(1000);
        EXPECT_EQ(exportError(),
                  TextureProcessorError::cannotWritePNG(output(QStringLiteral("Brick_BaseColor.png"))));
    }
    EXPECT_EQ(exportError(), std::nullopt);
    EXPECT_NE(readFile(output(QStringLiteral("Brick_BaseColor.png"))), before);
    EXPECT_EQ(outputNames().size(), 5);
}

TEST_F(MaterialExportFailure, AFullDiskKeepsTheOlderTexts) {
    textures.erase(TextureSlotKind::occlusion);
    textures.erase(TextureSlotKind::roughness);
    textures.erase(TextureSlotKind::metallic);
    load(TextureSlotKind::baseColor, constantPicture(2, 2, {1, 2, 3, 255}));
    load(TextureSlotKind::normal, constantPicture(2, 2, {128, 128, 255, 255}));
    exported();
    const QByteArray gltf = readFile(output(QStringLiteral("Brick.gltf")));
    const QByteArray notes = readFile(output(QStringLiteral("Brick_SL_PBR_notes.txt")));
    ASSERT_GT(gltf.size(), 400);
    ASSERT_LT(readFile(output(QStringLiteral("Brick_Normal.png"))).size(), 400);
    {
        const FullDisk limit(400);
        EXPECT_EQ(exportError(),
                  TextureProcessorError::cannotWriteText(output(QStringLiteral("Brick.gltf"))));
        settings.exportGLTF = false;
        EXPECT_EQ(exportError(),
                  TextureProcessorError::cannotWriteText(output(QStringLiteral("Brick_SL_PBR_notes.txt"))));
    }
    EXPECT_EQ(readFile(output(QStringLiteral("Brick.gltf"))), gltf);
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_SL_PBR_notes.txt"))), notes);
    EXPECT_EQ(outputNames().size(), 5);
}

/// Expects the file system's own failure about the material's folder.
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
    writeFile(folder.url(QStringLiteral("out/Brick")), "in the way");
    expectFileSystemError(outputParent());
    EXPECT_EQ(readFile(folder.url(QStringLiteral("out/Brick"))), "in the way");
}

TEST_F(UncreatableFolder, AFileInThePlaceOfAParentIsTheFileSystemsError) {
    writeFile(folder.url(QStringLiteral("out/file")), "in the way");
    expectFileSystemError(folder.url(QStringLiteral("out/file")));
    expectFileSystemError(folder.url(QStringLiteral("out/file/further/down")));
}

TEST_F(UncreatableFolder, AReadOnlyParentIsTheFileSystemsError) {
    const QByteArray path = QFile::encodeName(folder.path(QStringLiteral("out")));
    ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0755), 0);
    ASSERT_EQ(chmod(path.constData(), 0555), 0);
    const OrdinaryUser user;
    ASSERT_TRUE(user.works());
    expectFileSystemError(outputParent());
}

}  // namespace
