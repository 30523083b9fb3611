#include "batch_test.h"

#include "cli/batch/planned_files.h"
#include "engine/texture_processor.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/output_resolution.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <functional>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;

namespace {

class DryRun : public BatchTest {};

TEST_F(DryRun, ReportsWhatASingleSetWouldReadAndWrite) {
    const QString color = writeSource(u"brick.png"_s);
    const Outcome outcome = runMaterial({u"--base-color"_s, color, u"--dry-run"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(outcome.output, "Would export: " + output().toStdString() + "/brick\nWould read " +
                                  color.toStdString() +
                                  " (Base Color)\n"
                                  "Would write brick_BaseColor.png\n"
                                  "Would write brick_ORM.png\n"
                                  "Would write brick.gltf\n"
                                  "Would write brick_SL_PBR_notes.txt\n"
                                  "1 set to export\n");
    EXPECT_FALSE(QDir(output()).exists());
}

TEST_F(DryRun, ReportsWhichFilesAreReplaced) {
    const QString color = writeSource(u"brick.png"_s);
    const QStringList arguments{u"--base-color"_s, color, u"--no-notes"_s};
    ASSERT_EQ(runMaterial(arguments + QStringList{u"--no-gltf"_s}).status, 0);
    const FolderContents before = contentsOf(output() + u"/brick"_s);
    const Outcome outcome = runMaterial(arguments + QStringList{u"--dry-run"_s});
    EXPECT_EQ(outcome.output, "Would export: " + output().toStdString() + "/brick\nWould read " +
                                  color.toStdString() +
                                  " (Base Color)\n"
                                  "Would replace brick_BaseColor.png\n"
                                  "Would replace brick_ORM.png\n"
                                  "Would write brick.gltf\n"
                                  "1 set to export\n");
    expectSame(contentsOf(output() + u"/brick"_s), before);
}

TEST_F(DryRun, ReadsNoPixels) {
    writeBrokenSource(u"a.png"_s);
    const Outcome outcome = runMaps({u"--source"_s, sources(), u"--dry-run"_s});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_FALSE(QDir(output()).exists());
}

TEST_F(DryRun, FailsWhereAFileIsMissing) {
    const QString color = writeSource(u"brick.png"_s);
    const Outcome outcome =
        runMaps({u"--source"_s, color, u"--source"_s, path(u"none.png"_s), u"--dry-run"_s});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.errors, "none: Load failed: Could not read image: none.png\n  " +
                                  path(u"none.png"_s).toStdString() + ": not found, or not a regular file\n");
}

TEST_F(DryRun, ReportsEverySetInJson) {
    const QString color = writeSource(u"brick_color.png"_s);
    const QString folder = sources();
    const Outcome outcome = runMaterial({u"--folder"_s, folder, u"--dry-run"_s, u"--json"_s});
    EXPECT_EQ(
        outcome.output,
        "{\"type\": \"set\", \"version\": 1, \"status\": \"planned\", \"name\": \"brick\", \"folder\": \"" +
            output().toStdString() +
            "/brick\", \"files\": [\"brick_BaseColor.png\", \"brick_ORM.png\", \"brick.gltf\", "
            "\"brick_SL_PBR_notes.txt\"], \"replaced\": [], \"inputs\": {\"baseColor\": \"" +
            color.toStdString() +
            "\"}, \"channels\": {}, \"notes\": [], \"error\": {}}\n"
            "{\"type\": \"summary\", \"version\": 1, \"sets\": 1, \"exported\": 0, \"planned\": 1, "
            "\"upToDate\": 0, "
            "\"failed\": 0, \"notStarted\": 0, \"leftOut\": 0}\n");
}

class PlannedFiles : public BatchTest {
protected:
    const TextureProcessor processor{};
    const TextureAsset texture = processor.loadAsset(QUrl::fromLocalFile(writeSource(u"brick.png"_s)));
    const QUrl parent = QUrl::fromLocalFile(output());
};

TEST_F(PlannedFiles, AreThoseOfAMaterialSet) {
    for (int choice = 0; choice < 8; ++choice) {
        ConversionSettings settings;
        settings.outputResolution = OutputResolution::matchBase;
        settings.exportGLTF = (choice & 1) != 0;
        settings.exportNotes = (choice & 2) != 0;
        const bool hasNormal = (choice & 4) != 0;
        TextureMap textures{{TextureSlotKind::baseColor, texture}};
        if (hasNormal) {
            textures.emplace(TextureSlotKind::normal, texture);
        }
        EXPECT_EQ(plannedFiles(settings, hasNormal),
                  processor.exportMaterialSet(textures, settings, parent).files);
    }
}

TEST_F(PlannedFiles, AreThoseOfAGeneratedSet) {
    for (const auto& file : fixtures::withSwitch(fixtures::generatedFiles())) {
        NormalGeneratorSettings settings;
        settings.outputResolution = OutputResolution::matchBase;
        settings.*file.isExported = false;
        EXPECT_EQ(plannedFiles(settings),
                  processor.exportGeneratedNormalSet(texture, settings, parent).files);
    }
}

}  // namespace
