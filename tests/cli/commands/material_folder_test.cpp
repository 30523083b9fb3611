#include "batch_test.h"

#include <gmock/gmock.h>

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
    EXPECT_EQ(outcome.errors, "Left out: " + height.toStdString() + " (its name matches no slot)\n");
    EXPECT_EQ(outcome.output, materialReport("brick") + "1 set exported, 1 file left out\n");
}

TEST_F(MaterialFolder, DoesNotChooseBetweenTwoFilesForOneSlot) {
    writeSource(u"brick_color.png"_s);
    writeSource(u"brick_gloss.png"_s);
    writeSource(u"brick_rough.png"_s);
    writeSource(u"wood_albedo.png"_s);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors,
              "brick: Load failed: brick_gloss.png and brick_rough.png are both for Roughness / Gloss\n");
    EXPECT_EQ(outcome.output, materialReport("wood") + "1 set exported, 1 failed\n");
    EXPECT_EQ(exportedSets(), QStringList{u"wood"_s});
}

TEST_F(MaterialFolder, DoesNotChooseBetweenResolutions) {
    writeSource(u"brick_color_1k.png"_s);
    writeSource(u"brick_color_2k.png"_s);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
              "brick: Load failed: brick_color_1k.png and brick_color_2k.png are both for Base Color\n");
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
    EXPECT_EQ(outcome.errors,
              "Left out: " + output().toStdString() + "/brick/brick_ORM.png (its name matches no slot)\n");
    EXPECT_EQ(contentsOf(output() + u"/brick"_s).value(u"brick_BaseColor.png"_s),
              before.value(u"brick_BaseColor.png"_s));
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
                  "\", \"reason\": \"its name matches no slot\"}\n"
                  "{\"type\": \"set\", \"version\": 1, \"status\": \"exported\", \"name\": \"brick\", "
                  "\"folder\": \"" +
                  output().toStdString() +
                  "/brick\", \"files\": [\"brick_BaseColor.png\", \"brick_ORM.png\", \"brick.gltf\", "
                  "\"brick_SL_PBR_notes.txt\"], \"replaced\": [], \"inputs\": {\"baseColor\": \"" +
                  color.toStdString() + "\", \"roughness\": \"" + gloss.toStdString() +
                  "\"}, \"notes\": [{\"code\": \"decided\", \"text\": \"the roughness texture is a gloss map "
                  "by its name, "
                  "so it is inverted\", \"input\": \"\", \"profile\": \"\"}], \"error\": {}}\n"
                  "{\"type\": \"summary\", \"version\": 1, \"sets\": 1, \"exported\": 1, \"planned\": 0, "
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

}  // namespace
