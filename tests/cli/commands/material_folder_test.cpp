#include "batch_test.h"

#include <gmock/gmock.h>

#include <filesystem>

using namespace Qt::StringLiterals;

using namespace quarlin::tests;

namespace {

class MaterialFolder : public BatchTest {
protected:
    QStringList folder() const { return {u"--folder"_s, sources()}; }

    /// The set `name` as exported by a run that is given its files.
    FolderContents named(const QString& name, const QStringList& arguments) const {
        const Outcome outcome = runCli(QStringList{u"material"_s, u"--size"_s, u"base"_s, u"--name"_s, name,
                                                   u"--output"_s, path(u"expected"_s)} +
                                       arguments);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        return takenFrom(path(u"expected/"_s) + name);
    }
};

TEST_F(MaterialFolder, WritesTheBytesOfARunThatNamesTheFiles) {
    const QString color = writeSource(u"Brick_BaseColor_2k.png"_s, 1);
    const QString normal = writeSource(u"brick-normal.png"_s, 2);
    const QString occlusion = writeSource(u"BrickAO.png"_s, 3);
    const QString roughness = writeSource(u"brick_rough.png"_s, 4);
    const QString metallic = writeSource(u"brick metalness.png"_s, 5);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, materialReport("Brick", true) + "1 set exported\n");
    expectSame(contentsOf(output() + u"/Brick"_s),
               named(u"Brick"_s, {u"--base-color"_s, color, u"--normal"_s, normal, u"--occlusion"_s,
                                  occlusion, u"--roughness"_s, roughness, u"--metallic"_s, metallic}));
}

TEST_F(MaterialFolder, InvertsGlossForItsMaterialAlone) {
    const QString brick = writeSource(u"brick_color.png"_s, 1);
    const QString gloss = writeSource(u"brick_gloss.png"_s, 2);
    const QString wood = writeSource(u"wood_color.png"_s, 3);
    const QString roughness = writeSource(u"wood_roughness.png"_s, 4);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              materialReport("brick") +
                  "Note: the roughness texture is a gloss map by its name, so it is inverted\n" +
                  materialReport("wood") + "2 sets exported\n");
    expectSame(contentsOf(output() + u"/brick"_s),
               named(u"brick"_s, {u"--base-color"_s, brick, u"--roughness"_s, gloss, u"--gloss"_s}));
    expectSame(contentsOf(output() + u"/wood"_s),
               named(u"wood"_s, {u"--base-color"_s, wood, u"--roughness"_s, roughness}));
}

TEST_F(MaterialFolder, FlipsTheGreenOfADirectXNormalMap) {
    const QString color = writeSource(u"brick_color.png"_s, 1);
    const QString normal = writeSource(u"brick_NormalDX.png"_s, 2);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.output,
              materialReport("brick", true) +
                  "Note: the normal map is for DirectX by its name, so its green is inverted\n"
                  "1 set exported\n");
    expectSame(contentsOf(output() + u"/brick"_s), named(u"brick"_s, {u"--base-color"_s, color, u"--normal"_s,
                                                                      normal, u"--flip-normal-green"_s}));
}

TEST_F(MaterialFolder, UsesTheOpenGLMapOfTwoNormalMaps) {
    const QString color = writeSource(u"brick_Color.png"_s, 1);
    const QString openGL = writeSource(u"brick_NormalGL.png"_s, 2);
    const QString directX = writeSource(u"brick_NormalDX.png"_s, 3);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "Left out: " + directX.toStdString() +
                                  " (brick_NormalGL.png is used instead, which is for OpenGL)\n");
    EXPECT_EQ(outcome.output, materialReport("brick", true) + "1 set exported, 1 file left out\n");
    expectSame(contentsOf(output() + u"/brick"_s),
               named(u"brick"_s, {u"--base-color"_s, color, u"--normal"_s, openGL}));
}

TEST_F(MaterialFolder, ReportsFilesThatMatchNoSlot) {
    writeSource(u"brick_color.png"_s);
    const QString height = writeSource(u"brick_height.png"_s);
    writeBrokenSource(u"license.txt"_s);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "Left out: " + height.toStdString() +
                                  " (it is a height map, which a material has no slot for)\n");
    EXPECT_EQ(outcome.output, materialReport("brick") + "1 set exported, 1 file left out\n");
}

TEST_F(MaterialFolder, ChoosesBetweenFilesForOneSlotAndSaysWhy) {
    writeSource(u"brick_color.png"_s);
    const QString gloss = writeSource(u"brick_gloss.png"_s);
    const QString small = writeSource(u"brick_normal_1k.png"_s);
    const QString large = writeSource(u"brick_normal_2k.png"_s);
    const QString rough = writeSource(u"brick_rough.png"_s);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors,
              "Left out: " + gloss.toStdString() +
                  " (brick_rough.png is used instead, which is roughness)\nLeft out: " + small.toStdString() +
                  " (brick_normal_2k.png is used instead, which is larger)\n");
    const Outcome other = runMaterial(folder() + QStringList{u"--prefer"_s, u"gloss,1k"_s});
    EXPECT_EQ(other.errors, "Left out: " + large.toStdString() +
                                " (brick_normal_1k.png is used instead, which has the preferred resolution)\n"
                                "Left out: " +
                                rough.toStdString() + " (brick_gloss.png is used instead, which is gloss)\n");
}

TEST_F(MaterialFolder, ExportsNothingIfStrictAndAFileIsLeftOut) {
    writeSource(u"brick_color.png"_s);
    writeSource(u"brick_height.png"_s);
    const QStringList strict = folder() + QStringList{u"--strict"_s};
    EXPECT_EQ(runMaterial(strict).status, 0) << "a height map is missing in no material";
    ASSERT_TRUE(QDir(output()).removeRecursively());
    const QString unknown = writeSource(u"brick_sketch.png"_s);
    const Outcome outcome = runMaterial(strict);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors,
                testing::EndsWith("Left out: " + unknown.toStdString() +
                                  " (its name matches no slot)\n"
                                  "Export failed: pictures are left out, which --strict does not allow\n"));
    EXPECT_EQ(outcome.output, "0 sets exported, 1 not started, 2 files left out\n");
    EXPECT_FALSE(QDir(output()).exists());
}

TEST_F(MaterialFolder, ReadsNamesByTheUsersRules) {
    const QString color = writeSource(u"brick_tint.png"_s, 1);
    const QString normal = writeSource(u"brick_relief.png"_s, 2);
    const QString rules = writeFile(u"studio.txt"_s, "# names\nnormal = relief\n");
    const Outcome outcome =
        runMaterial(folder() + QStringList{u"--suffix"_s, u"base-color=tint"_s, u"--rules"_s, rules});
    EXPECT_EQ(outcome.output, materialReport("brick", true) + "1 set exported\n");
    expectSame(contentsOf(output() + u"/brick"_s),
               named(u"brick"_s, {u"--base-color"_s, color, u"--normal"_s, normal}));
}

TEST_F(MaterialFolder, UsesTheChannelsOfAPackedMap) {
    const QString color = writeSource(u"brick_color.png"_s, 1);
    const QString packed = writeSource(u"brick_ORM.png"_s, 2);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.output, materialReport("brick") +
                                  "Note: Occlusion is the red channel of brick_ORM.png\n"
                                  "Note: Roughness / Gloss is the green channel of brick_ORM.png\n"
                                  "Note: Metallic is the blue channel of brick_ORM.png\n"
                                  "1 set exported\n");
    const QImage written(output() + u"/brick/brick_ORM.png"_s);
    const QImage source(packed);
    for (int index = 0; index < 16 * 16; ++index) {
        ASSERT_EQ(written.pixel(index % 16, index / 16), source.pixel(index % 16, index / 16)) << index;
    }
    expectSame(contentsOf(output() + u"/brick"_s),
               named(u"brick"_s, {u"--base-color"_s, color, u"--occlusion"_s, packed + u":r"_s,
                                  u"--roughness"_s, packed + u":g"_s, u"--metallic"_s, packed + u":b"_s}));
}

TEST_F(MaterialFolder, UsesSmoothnessInAlphaEvenWhereItIsZero) {
    writeSource(u"crate_AlbedoTransparency.png"_s, 1);
    QImage packed(4, 4, QImage::Format_RGBA8888);
    for (int index = 0; index < 16; ++index) {
        packed.setPixelColor(index % 4, index / 4, QColor(200 + index, 0, 0, index == 0 ? 0 : index * 10));
    }
    ASSERT_TRUE(packed.save(sourcePath(u"crate_MetallicSmoothness.png"_s), "PNG"));
    QImage color(4, 4, QImage::Format_RGB32);
    color.fill(Qt::red);
    ASSERT_TRUE(color.save(sourcePath(u"crate_AlbedoTransparency.png"_s), "PNG"));
    ASSERT_EQ(runMaterial(folder()).status, 0);
    const QImage orm(output() + u"/crate/crate_ORM.png"_s);
    for (int index = 0; index < 16; ++index) {
        const QColor pixel = orm.pixelColor(index % 4, index / 4);
        EXPECT_EQ(pixel.blue(), 200 + index);
        EXPECT_EQ(pixel.green(), index == 0 ? 255 : 255 - index * 10);
    }
}

TEST_F(MaterialFolder, DoesNotReadExportedSetsBelowIt) {
    writeSource(u"brick_color.png"_s);
    ASSERT_EQ(runCli({u"material"_s, u"--folder"_s, sources(), u"--size"_s, u"base"_s, u"--output"_s,
                      sources() + u"/sets"_s})
                  .status,
              0);
    const Outcome outcome = runMaterial(folder() + QStringList{u"--recursive"_s});
    EXPECT_EQ(outcome.errors,
              "Left out: " + sources().toStdString() + "/sets/brick (it is an exported set)\n");
    EXPECT_EQ(outcome.output, materialReport("brick") + "1 set exported, 1 file left out\n");
}

TEST_F(MaterialFolder, TellsBothPathsOfACollision) {
    const QString first = writeSource(u"a/brick_color.png"_s);
    const QString second = writeSource(u"b/brick_color.png"_s);
    const QStringList recursive = folder() + QStringList{u"--recursive"_s};
    const Outcome outcome = runMaterial(recursive);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
              "brick: Export failed: The sets of " + first.toStdString() + " and " + second.toStdString() +
                  " go to the same folder\nbrick: Export failed: The sets of " + second.toStdString() +
                  " and " + first.toStdString() + " go to the same folder\n");
    EXPECT_FALSE(QDir(output()).exists());
    const Outcome kept = runMaterial(recursive + QStringList{u"--keep-tree"_s});
    EXPECT_EQ(kept.status, 0) << kept.errors;
    EXPECT_TRUE(QFile::exists(output() + u"/a/brick/brick.gltf"_s));
    EXPECT_TRUE(QFile::exists(output() + u"/b/brick/brick.gltf"_s));
}

TEST_F(MaterialFolder, FailsAMaterialWithoutBaseColor) {
    writeSource(u"brick_normal.png"_s);
    writeSource(u"wood_color.png"_s);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "brick: Export failed: Base Color texture is required.\n");
    EXPECT_EQ(outcome.output, materialReport("wood") + "1 set exported, 1 failed\n");
}

TEST_F(MaterialFolder, NamesAMaterialAfterItsFolderWhenTheFilesDoNot) {
    writeSource(u"Red Brick/basecolor.png"_s);
    writeSource(u"Red Brick/normal.png"_s);
    const Outcome outcome = runMaterial({u"--folder"_s, sources() + u"/Red Brick"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, materialReport("Red_Brick", true) + "1 set exported\n");
}

TEST_F(MaterialFolder, KeepsTheMaterialsOfSubfoldersApart) {
    writeSource(u"brick/color.png"_s);
    writeSource(u"wood/color.png"_s);
    EXPECT_EQ(runMaterial(folder()).errors, "sources: Load failed: No image files in folder: sources\n");
    const Outcome outcome = runMaterial(folder() + QStringList{u"--recursive"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, materialReport("brick") + materialReport("wood") + "2 sets exported\n");
}

TEST_F(MaterialFolder, TakesSeveralFolders) {
    writeSource(u"a/brick_color.png"_s);
    writeSource(u"b/wood_color.png"_s);
    const Outcome outcome = runMaterial({u"--folder"_s, sources() + u"/b"_s, u"--folder"_s,
                                         sources() + u"/a"_s, u"--folder"_s, sources() + u"/b/"_s});
    EXPECT_EQ(outcome.output, materialReport("wood") + materialReport("brick") + "2 sets exported\n");
}

TEST_F(MaterialFolder, ExportsASetOntoItself) {
    writeSource(u"brick_color.png"_s);
    writeSource(u"brick_normal.png"_s);
    ASSERT_EQ(runMaterial(folder()).status, 0);
    const FolderContents before = contentsOf(output() + u"/brick"_s);
    const Outcome outcome = runMaterial({u"--folder"_s, output() + u"/brick"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.errors, "");
    for (const char* name : {"brick_BaseColor.png", "brick_ORM.png", "brick_Normal.png"}) {
        EXPECT_EQ(contentsOf(output() + u"/brick"_s).value(QString::fromUtf8(name)),
                  before.value(QString::fromUtf8(name)))
            << name;
    }
}

TEST_F(MaterialFolder, IsNotAFile) {
    const QString file = writeSource(u"brick_color.png"_s);
    const Outcome outcome = runMaterial({u"--folder"_s, file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
              "brick_color.png: Load failed: Could not read folder: brick_color.png (Not a directory)\n");
}

TEST_F(MaterialFolder, ReportsEverythingInLinesOfJson) {
    const QString color = writeSource(u"brick_color.png"_s);
    const QString gloss = writeSource(u"brick_gloss.png"_s);
    const QString height = writeSource(u"brick_height.png"_s);
    const Outcome outcome = runMaterial(folder() + QStringList{u"--json"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output,
              "{\"type\": \"leftOut\", \"version\": 1, \"file\": \"" + height.toStdString() +
                  "\", \"identifier\": \"other-map\", \"reason\": \"it is a height map, which a material has "
                  "no slot for\"}\n"
                  "{\"type\": \"set\", \"version\": 1, \"status\": \"exported\", \"name\": \"brick\", "
                  "\"folder\": \"" +
                  output().toStdString() +
                  "/brick\", \"files\": [\"brick_BaseColor.png\", \"brick_ORM.png\", \"brick.gltf\", "
                  "\"brick_SL_PBR_notes.txt\"], \"replaced\": [], \"inputs\": {\"baseColor\": \"" +
                  color.toStdString() + "\", \"roughness\": \"" + gloss.toStdString() +
                  "\"}, \"channels\": {}, \"notes\": [{\"code\": \"decided\", \"text\": \"the roughness "
                  "texture is a gloss map "
                  "by its name, "
                  "so it is inverted\", \"input\": \"\", \"profile\": \"\"}], \"error\": {}}\n"
                  "{\"type\": \"summary\", \"version\": 1, \"sets\": 1, \"exported\": 1, \"planned\": 0, "
                  "\"upToDate\": 0, "
                  "\"failed\": 0, "
                  "\"notStarted\": 0, \"leftOut\": 1}\n");
}

TEST_F(MaterialFolder, CannotBeCombinedWithTheFileOfASlot) {
    const QString color = writeSource(u"brick_color.png"_s);
    for (const char* slot : {"--base-color", "--normal", "--occlusion", "--roughness", "--metallic"}) {
        const Outcome outcome = runMaterial(folder() + QStringList{QString::fromUtf8(slot), color});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.errors,
                  "quarlin-cli: --folder can't be combined with the file of a slot\n"
                  "Try 'quarlin-cli material --help'.\n");
    }
    EXPECT_FALSE(QDir(output()).exists());
}

TEST_F(MaterialFolder, ReadsNamesInTheBytesOfAnOldArchive) {
    // Latin-1, which is not valid UTF-8.
    const QString color = writeSource(u"color.png"_s, 1);
    const QString roughness = writeSource(u"roughness.png"_s, 2);
    const std::filesystem::path folderPath = sources().toStdString();
    std::filesystem::rename(folderPath / "color.png", folderPath / "gr\xfcn_color.png");
    std::filesystem::rename(folderPath / "roughness.png", folderPath / "gr\xfcn_roughness.png");
    const Outcome outcome = runMaterial(folder() + QStringList{u"--name"_s, u"green"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.errors, "");
    std::filesystem::rename(folderPath / "gr\xfcn_color.png", folderPath / "color.png");
    std::filesystem::rename(folderPath / "gr\xfcn_roughness.png", folderPath / "roughness.png");
    const QString orm = u"green_ORM.png"_s;
    EXPECT_EQ(contentsOf(output() + u"/green"_s)[orm],
              named(u"green"_s, {u"--base-color"_s, color, u"--roughness"_s, roughness})[orm]);
}

}  // namespace
