#include "batch_test.h"

#include <gmock/gmock.h>

using namespace quarlin::tests;

namespace {

QString word(const char* text) { return QString::fromUtf8(text); }

class MaterialFolder : public BatchTest {
protected:
    QStringList folder() const { return {word("--folder"), sources()}; }

    /// What a run that names the files gives for `name`.
    FolderContents named(const QString& name, const QStringList& words) const {
        const Outcome outcome =
            runCli(QStringList{word("material"), word("--size"), word("base"), word("--name"), name,
                               word("--output"), path(word("expected"))} +
                   words);
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        return takenFrom(path(word("expected/")) + name);
    }
};

TEST_F(MaterialFolder, GivesTheBytesOfARunThatNamesTheFiles) {
    const QString color = writeSource(word("Brick_BaseColor_2k.png"), 1);
    const QString normal = writeSource(word("brick-normal.png"), 2);
    const QString occlusion = writeSource(word("BrickAO.png"), 3);
    const QString roughness = writeSource(word("brick_rough.png"), 4);
    const QString metallic = writeSource(word("brick metalness.png"), 5);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, materialReport("Brick", true) + "1 set exported\n");
    expectSame(
        contentsOf(output() + word("/Brick")),
        named(word("Brick"), {word("--base-color"), color, word("--normal"), normal, word("--occlusion"),
                              occlusion, word("--roughness"), roughness, word("--metallic"), metallic}));
}

TEST_F(MaterialFolder, InvertsGlossForItsMaterialAlone) {
    const QString brick = writeSource(word("brick_color.png"), 1);
    const QString gloss = writeSource(word("brick_gloss.png"), 2);
    const QString wood = writeSource(word("wood_color.png"), 3);
    const QString roughness = writeSource(word("wood_roughness.png"), 4);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              materialReport("brick") +
                  "Note: the roughness texture is a gloss map by its name, so it is inverted\n" +
                  materialReport("wood") + "2 sets exported\n");
    expectSame(
        contentsOf(output() + word("/brick")),
        named(word("brick"), {word("--base-color"), brick, word("--roughness"), gloss, word("--gloss")}));
    expectSame(contentsOf(output() + word("/wood")),
               named(word("wood"), {word("--base-color"), wood, word("--roughness"), roughness}));
}

TEST_F(MaterialFolder, FlipsTheGreenOfADirectXNormalMap) {
    const QString color = writeSource(word("brick_color.png"), 1);
    const QString normal = writeSource(word("brick_NormalDX.png"), 2);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.output,
              materialReport("brick", true) +
                  "Note: the normal map is for DirectX by its name, so its green is inverted\n"
                  "1 set exported\n");
    expectSame(contentsOf(output() + word("/brick")),
               named(word("brick"),
                     {word("--base-color"), color, word("--normal"), normal, word("--flip-normal-green")}));
}

TEST_F(MaterialFolder, TakesTheOpenGLMapOfTwoNormalMaps) {
    const QString color = writeSource(word("brick_Color.png"), 1);
    const QString openGL = writeSource(word("brick_NormalGL.png"), 2);
    const QString directX = writeSource(word("brick_NormalDX.png"), 3);
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "Left out: " + directX.toStdString() +
                                  " (brick_NormalGL.png is used instead, which is for OpenGL)\n");
    EXPECT_EQ(outcome.output, materialReport("brick", true) + "1 set exported, 1 file left out\n");
    expectSame(contentsOf(output() + word("/brick")),
               named(word("brick"), {word("--base-color"), color, word("--normal"), openGL}));
}

TEST_F(MaterialFolder, ReportsFilesThatNoSlotTakes) {
    writeSource(word("brick_color.png"));
    const QString height = writeSource(word("brick_height.png"));
    writeBrokenSource(word("license.txt"));
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "Left out: " + height.toStdString() + " (its name matches no slot)\n");
    EXPECT_EQ(outcome.output, materialReport("brick") + "1 set exported, 1 file left out\n");
}

TEST_F(MaterialFolder, DoesNotChooseBetweenTwoFilesForOneSlot) {
    writeSource(word("brick_color.png"));
    writeSource(word("brick_gloss.png"));
    writeSource(word("brick_rough.png"));
    writeSource(word("wood_albedo.png"));
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors,
              "brick: Load failed: brick_gloss.png and brick_rough.png are both for Roughness / Gloss\n");
    EXPECT_EQ(outcome.output, materialReport("wood") + "1 set exported, 1 failed\n");
    EXPECT_EQ(exportedSets(), QStringList{word("wood")});
}

TEST_F(MaterialFolder, DoesNotChooseBetweenResolutions) {
    writeSource(word("brick_color_1k.png"));
    writeSource(word("brick_color_2k.png"));
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
              "brick: Load failed: brick_color_1k.png and brick_color_2k.png are both for Base Color\n");
}

TEST_F(MaterialFolder, FailsAMaterialWithoutBaseColor) {
    writeSource(word("brick_normal.png"));
    writeSource(word("wood_color.png"));
    const Outcome outcome = runMaterial(folder());
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "brick: Export failed: Base Color texture is required.\n");
    EXPECT_EQ(outcome.output, materialReport("wood") + "1 set exported, 1 failed\n");
}

TEST_F(MaterialFolder, NamesAMaterialAfterItsFolderWhenTheFilesDoNot) {
    writeSource(word("Red Brick/basecolor.png"));
    writeSource(word("Red Brick/normal.png"));
    const Outcome outcome = runMaterial({word("--folder"), sources() + word("/Red Brick")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, materialReport("Red_Brick", true) + "1 set exported\n");
}

TEST_F(MaterialFolder, KeepsTheMaterialsOfSubfoldersApart) {
    writeSource(word("brick/color.png"));
    writeSource(word("wood/color.png"));
    EXPECT_EQ(runMaterial(folder()).errors, "sources: Load failed: No image files in folder: sources\n");
    const Outcome outcome = runMaterial(folder() + QStringList{word("--recursive")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, materialReport("brick") + materialReport("wood") + "2 sets exported\n");
}

TEST_F(MaterialFolder, TakesSeveralFolders) {
    writeSource(word("a/brick_color.png"));
    writeSource(word("b/wood_color.png"));
    const Outcome outcome = runMaterial({word("--folder"), sources() + word("/b"), word("--folder"),
                                         sources() + word("/a"), word("--folder"), sources() + word("/b/")});
    EXPECT_EQ(outcome.output, materialReport("wood") + materialReport("brick") + "2 sets exported\n");
}

TEST_F(MaterialFolder, ExportsASetOntoItself) {
    writeSource(word("brick_color.png"));
    writeSource(word("brick_normal.png"));
    ASSERT_EQ(runMaterial(folder()).status, 0);
    const FolderContents before = contentsOf(output() + word("/brick"));
    const Outcome outcome = runMaterial({word("--folder"), output() + word("/brick")});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_EQ(outcome.errors,
              "Left out: " + output().toStdString() + "/brick/brick_ORM.png (its name matches no slot)\n");
    EXPECT_EQ(contentsOf(output() + word("/brick")).value(word("brick_BaseColor.png")),
              before.value(word("brick_BaseColor.png")));
}

TEST_F(MaterialFolder, IsNoFile) {
    const QString file = writeSource(word("brick_color.png"));
    const Outcome outcome = runMaterial({word("--folder"), file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors,
              "brick_color.png: Load failed: Could not read folder: brick_color.png (Not a directory)\n");
}

TEST_F(MaterialFolder, TellsEverythingInLinesOfJson) {
    const QString color = writeSource(word("brick_color.png"));
    const QString gloss = writeSource(word("brick_gloss.png"));
    const QString height = writeSource(word("brick_height.png"));
    const Outcome outcome = runMaterial(folder() + QStringList{word("--json")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(
        outcome.output,
        "{\"type\": \"leftOut\", \"file\": \"" + height.toStdString() +
            "\", \"reason\": \"its name matches no slot\"}\n"
            "{\"type\": \"set\", \"name\": \"brick\", \"status\": \"exported\", \"inputs\": "
            "{\"baseColor\": \"" +
            color.toStdString() + "\", \"roughness\": \"" + gloss.toStdString() +
            "\"}, \"decisions\": [\"the roughness texture is a gloss map by its name, so it is inverted\"], "
            "\"folder\": \"" +
            output().toStdString() +
            "/brick\", \"files\": [\"brick_BaseColor.png\", \"brick_ORM.png\", \"brick.gltf\", "
            "\"brick_SL_PBR_notes.txt\"]}\n"
            "{\"type\": \"summary\", \"sets\": 1, \"exported\": 1, \"planned\": 0, \"failed\": 0, "
            "\"notStarted\": 0, \"leftOut\": 1}\n");
}

TEST_F(MaterialFolder, DoesNotGoTogetherWithTheFileOfASlot) {
    const QString color = writeSource(word("brick_color.png"));
    for (const char* slot : {"--base-color", "--normal", "--occlusion", "--roughness", "--metallic"}) {
        const Outcome outcome = runMaterial(folder() + QStringList{word(slot), color});
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.errors,
                  "quarlin-cli: --folder can't be combined with the file of a slot\n"
                  "Try 'quarlin-cli material --help'.\n");
    }
    EXPECT_FALSE(QDir(output()).exists());
}

}  // namespace
