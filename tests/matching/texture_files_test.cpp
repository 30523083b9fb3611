#include "matching/texture_files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

class TextureFiles : public testing::Test {
protected:
    const QTemporaryDir folder;

    QString path(const QString& name) const { return folder.filePath(name); }

    void write(const QString& name) const {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path(name)).path()));
        ASSERT_TRUE(QFile(path(name)).open(QIODevice::WriteOnly));
    }

    QStringList found(const TextureSearch& search) const {
        QStringList files;
        for (const TextureFolder& textures : findTextures(folder.path(), search).folders) {
            files += textures.files;
        }
        return files;
    }
};

TEST_F(TextureFiles, AreFoundByTheirExtensionAndSorted) {
    for (const QString& name : {u"b.png"_s, u"a.JPG"_s, u"notes.txt"_s, u".hidden.png"_s, u"below/c.png"_s}) {
        write(name);
    }
    EXPECT_EQ(found({}), (QStringList{path(u"a.JPG"_s), path(u"b.png"_s)}));
}

TEST_F(TextureFiles, AreFoundInSubfoldersOnRequest) {
    write(u"z.png"_s);
    write(u"b/c.png"_s);
    write(u"a/d.png"_s);
    EXPECT_EQ(found({Depth::withSubfolders, {}}),
              (QStringList{path(u"z.png"_s), path(u"a/d.png"_s), path(u"b/c.png"_s)}));
}

TEST_F(TextureFiles, AreNotFoundInTheOutputFolder) {
    write(u"a.png"_s);
    write(u"sets/b.png"_s);
    EXPECT_EQ(found({Depth::withSubfolders, path(u"sets"_s)}), QStringList{path(u"a.png"_s)});
}

TEST_F(TextureFiles, AreNotFoundInAnOutputFolderThatIsGivenThroughALink) {
    write(u"in/a.png"_s);
    write(u"in/sets/b.png"_s);
    ASSERT_TRUE(QFile::link(path(u"in"_s), path(u"link"_s)));
    ASSERT_TRUE(QFile::link(path(u"in/sets"_s), path(u"output"_s)));
    const auto count = [&](const QString& searched, const QString& output) {
        return findTextures(path(searched), {Depth::withSubfolders, path(output)}).folders.size();
    };
    EXPECT_EQ(count(u"in"_s, u"none"_s), 2U);
    EXPECT_EQ(count(u"in"_s, u"output"_s), 1U);
    EXPECT_EQ(count(u"in"_s, u"link/sets"_s), 1U);
    EXPECT_EQ(count(u"link"_s, u"in/sets"_s), 1U);
    EXPECT_EQ(count(u"link"_s, u"output"_s), 1U);
}

TEST_F(TextureFiles, AreNotFoundBehindALinkToAFolder) {
    write(u"a.png"_s);
    ASSERT_TRUE(QFile::link(folder.path(), path(u"link.png"_s)));
    EXPECT_EQ(found({Depth::withSubfolders, {}}), QStringList{path(u"a.png"_s)});
}

TEST_F(TextureFiles, OfFormatsThatAreNotReadAreKnown) {
    write(u"a.png"_s);
    write(u"b.EXR"_s);
    write(u"c.txt"_s);
    const FoundTextures textures = findTextures(folder.path(), {});
    ASSERT_EQ(textures.folders.size(), 1U);
    EXPECT_EQ(textures.folders[0].unreadFiles, QStringList{path(u"b.EXR"_s)});
}

TEST_F(TextureFiles, KnowTheirFolderBelowTheSearchedOne) {
    write(u"z.png"_s);
    write(u"a/b/d.png"_s);
    const FoundTextures textures = findTextures(folder.path(), {Depth::withSubfolders, {}});
    ASSERT_EQ(textures.folders.size(), 2U);
    EXPECT_EQ(textures.folders[0].relativePath, QString());
    EXPECT_EQ(textures.folders[1].relativePath, u"a/b"_s);
}

TEST_F(TextureFiles, AreNotFoundInAnExportedSet) {
    write(u"a.png"_s);
    for (const QString& name :
         {u"Brick/Brick_BaseColor.png"_s, u"Brick/Brick_SL_PBR_notes.txt"_s, u"Wood/Wood_basecolor.png"_s,
          u"Wood/Wood_maps_notes.txt"_s, u"Sand/Sand_BaseColor.png"_s, u"Sand/Sand.gltf"_s}) {
        write(name);
    }
    const FoundTextures textures = findTextures(folder.path(), {Depth::withSubfolders, {}});
    EXPECT_EQ(textures.exportedSets, (QStringList{path(u"Brick"_s), path(u"Wood"_s)}));
    // A .gltf of another program.
    EXPECT_EQ(textures.folders.back().path, path(u"Sand"_s));
}

TEST_F(TextureFiles, AreFoundInAnExportedSetThatIsSearchedItself) {
    write(u"Brick/Brick_BaseColor.png"_s);
    write(u"Brick/Brick_SL_PBR_notes.txt"_s);
    EXPECT_EQ(findTextures(path(u"Brick"_s), {}).folders.size(), 1U);
}

TEST_F(TextureFiles, MustExist) {
    try {
        findTextures(folder.path(), {});
        FAIL();
    } catch (const TextureSearchError& error) {
        EXPECT_EQ(error.reason(), u"No image files in folder: "_s + QFileInfo(folder.path()).fileName());
    }
}

TEST_F(TextureFiles, NeedAFolderThatCanBeRead) {
    try {
        findTextures(path(u"none"_s), {});
        FAIL();
    } catch (const TextureSearchError& error) {
        EXPECT_EQ(error.reason(), u"Could not read folder: none (No such file or directory)"_s);
    }
}

}  // namespace
