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
        for (const TextureFolder& textures : findTextures(folder.path(), search)) {
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

TEST_F(TextureFiles, AreNotFoundBehindALinkToAFolder) {
    write(u"a.png"_s);
    ASSERT_TRUE(QFile::link(folder.path(), path(u"link.png"_s)));
    EXPECT_EQ(found({Depth::withSubfolders, {}}), QStringList{path(u"a.png"_s)});
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
