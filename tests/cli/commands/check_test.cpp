#include "check_fixture.h"

#include <QDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

using namespace quarlin::tests;
using testing::HasSubstr;

namespace {

TEST_F(Check, FindsNothingInAGoodSet) {
    exportGoodSet();
    expectNothing(check());
}

TEST_F(Check, FindsNothingInAGoodSetWithoutDocument) {
    exportGoodSet({u"--no-gltf"_s});
    expectNothing(check());
}

TEST_F(Check, FindsAFolderThatIsMissing) {
    expectFinding("error: The folder can't be read. [unreadable-folder]");
}

TEST_F(Check, FindsAFolderThatIsAFile) {
    exportGoodSet();
    const Outcome outcome = runCli({u"check"_s, file("_ORM.png")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("[unreadable-folder]"));
}

TEST_F(Check, FindsThatThereIsNoSet) {
    ASSERT_TRUE(QDir().mkpath(set));
    expectFinding(
        "error: The folder contains neither a .gltf nor images with the names of an exported set. [no-set]");
}

TEST_F(Check, FindsADocumentThatCannotBeRead) {
    ASSERT_TRUE(QDir().mkpath(file(".gltf")));
    expectFinding("error: Brick.gltf: The document can't be read. [unreadable-document]");
}

TEST_F(Check, FindsADocumentThatIsNotJson) {
    exportGoodSet();
    writeDocument("{ \"asset\": ");
    const Outcome outcome = check();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("  error: Brick.gltf: The .gltf is not valid JSON: "));
    EXPECT_THAT(outcome.output, HasSubstr(" [invalid-json]\n"));
}

TEST_F(Check, FindsADocumentOfAnotherVersion) {
    exportGoodSet();
    edit("\"2.0\"", "\"1.0\"");
    expectFinding(
        "error: Brick.gltf: The .gltf does not describe a glTF 2.0 material: its version is not 2. "
        "[invalid-gltf]");
}

TEST_F(Check, FindsJsonThatIsNotGltf) {
    exportGoodSet();
    for (const char* text : {"[]", "[1]", "{}", "{\"asset\": 2}", "{\"asset\": {\"version\": 2.0}}"}) {
        writeDocument(text);
        expectFinding(
            "error: Brick.gltf: The .gltf does not describe a glTF 2.0 material: its version is not 2. "
            "[invalid-gltf]");
    }
}

TEST_F(Check, FindsADocumentWithoutMaterial) {
    exportGoodSet();
    writeDocument("{\"asset\": {\"version\": \"2.0\"}}");
    expectFinding(
        "error: Brick.gltf: The .gltf does not describe a glTF 2.0 material: it lists no materials. "
        "[invalid-gltf]");
}

TEST_F(Check, FindsAReferenceToAMissingElement) {
    for (const char* index : {"9", "-1", "1.5", "\"2\"", "null"}) {
        exportGoodSet();
        edit("\"normalTexture\" : {\n        \"index\" : 2",
             QByteArray("\"normalTexture\" : {\n        \"index\" : ") + index);
        expectFinding(
            "error: Brick.gltf: The .gltf does not describe a glTF 2.0 material: normalTexture refers to an "
            "image that it "
            "does not have. "
            "[invalid-gltf]");
    }
}

TEST_F(Check, FindsAReferenceThatLeavesTheFolder) {
    for (const char* uri : {"../Brick_Normal.png", "/etc/Brick_Normal.png", "file:///tmp/a.png",
                            "https://example.com/a.png", "%2e%2e/a.png", "a/../../b.png"}) {
        exportGoodSet();
        edit("\"Brick_Normal.png\"", QByteArray("\"") + uri + '"');
        expectFinding(
            std::string(
                "error: Brick.gltf: The .gltf refers to an image outside the folder: normalTexture is ") +
            uri + ". [outside-reference]");
    }
}

TEST_F(Check, FollowsAReferenceThatIsEscaped) {
    exportGoodSet();
    edit("\"Brick_Normal.png\"", "\"./Brick%5FNormal.png\"");
    expectNothing(check());
}

TEST_F(Check, FindsAMissingImage) {
    exportGoodSet();
    ASSERT_TRUE(QFile::remove(file("_ORM.png")));
    expectFinding("error: Brick_ORM.png: The image is missing. [missing-image]");
}

TEST_F(Check, FindsAMissingImageWithoutDocument) {
    exportGoodSet({u"--no-gltf"_s});
    ASSERT_TRUE(QFile::remove(file("_BaseColor.png")));
    expectFinding("error: Brick_BaseColor.png: The image is missing. [missing-image]");
}

TEST_F(Check, FindsAFolderInPlaceOfAnImage) {
    exportGoodSet();
    ASSERT_TRUE(QFile::remove(file("_ORM.png")));
    ASSERT_TRUE(QDir().mkpath(file("_ORM.png")));
    expectFinding("error: Brick_ORM.png: The image can't be read. [missing-image]");
}

TEST_F(Check, FindsATruncatedImage) {
    exportGoodSet();
    const QByteArray whole = bytesOf(file("_BaseColor.png"));
    write(file("_BaseColor.png"), whole.left(whole.size() / 2));
    expectFinding(
        "error: Brick_BaseColor.png: The file is not a complete, undamaged image. [undecodable-image]");
}

TEST_F(Check, FindsAFormatOutsideGltf) {
    exportGoodSet();
    ASSERT_TRUE(QImage(file("_BaseColor.png")).save(file("_BaseColor.png"), "BMP"));
    expectFinding("error: Brick_BaseColor.png: The image is neither PNG nor JPEG. [wrong-format]");
}

TEST_F(Check, FindsAFormatThatContradictsTheName) {
    exportGoodSet();
    ASSERT_TRUE(QImage(file("_BaseColor.png")).save(file("_BaseColor.png"), "JPG"));
    expectFinding(
        "error: Brick_BaseColor.png: The image is a JPEG, but its name says otherwise. [wrong-format]");
}

TEST_F(Check, FindsAGrayImageWhereChannelsMustDiffer) {
    exportGoodSet();
    redraw("_ORM.png", inGray);
    expectFinding(
        "error: Brick_ORM.png: The ORM or normal map is gray: red, green and blue are the same. "
        "[wrong-channels]");
}

TEST_F(Check, AcceptsAGrayBaseColor) {
    exportGoodSet();
    redraw("_BaseColor.png", inGray);
    expectNothing(check());
}

TEST_F(Check, FindsSixteenBits) {
    exportGoodSet();
    redraw("_Normal.png", [](const QImage& image) { return image.convertToFormat(QImage::Format_RGBX64); });
    expectFinding(
        "warning: Brick_Normal.png: The image does not have 8 bits per channel: it has 16. [wrong-depth]");
}

TEST_F(Check, FindsAPalette) {
    exportGoodSet();
    redraw("_BaseColor.png",
           [](const QImage& image) { return image.convertToFormat(QImage::Format_Indexed8); });
    expectFinding(
        "warning: Brick_BaseColor.png: The image has a palette of at most 256 colors instead of channels. "
        "[indexed-color]");
}

TEST_F(Check, FindsSidesThatAreNotPowersOfTwo) {
    exportGoodSet();
    redrawAll([](const QImage& image) { return image.copy(0, 0, side, side - 1); });
    const Outcome outcome = check();
    EXPECT_EQ(outcome.status, 3);
    for (const std::string name : {"BaseColor", "ORM", "Normal"}) {
        EXPECT_THAT(outcome.output,
                    HasSubstr("  warning: Brick_" + name +
                              ".png: A side is not a power of two, so the image is rescaled on upload: it is "
                              "64x63. [not-power-of-two]\n"));
    }
    EXPECT_THAT(outcome.output, HasSubstr("1 folder checked: 0 errors, 3 warnings, 0 notes\n"));
}

TEST_F(Check, FindsSidesThatAreTooLong) {
    exportGoodSet();
    redrawAll([](const QImage& image) { return image.scaled(4096, 2); });
    const Outcome outcome = check();
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(
        outcome.output,
        HasSubstr("  warning: Brick_ORM.png: A side is longer than 2048 pixels, so the image is scaled "
                  "down on upload: it is 4096x2. [too-large]\n"));
    EXPECT_THAT(outcome.output, HasSubstr("1 folder checked: 0 errors, 3 warnings, 0 notes\n"));
}

TEST_F(Check, FindsMapsOfDifferentSizes) {
    exportGoodSet();
    redraw("_ORM.png", [](const QImage& image) { return image.scaled(side / 2, side / 2); });
    expectFinding(
        "warning: Brick_ORM.png: The images of the material have different sizes: Brick_BaseColor.png has "
        "another size. [different-sizes]");
}

TEST_F(Check, FindsASeparateOcclusionTexture) {
    exportGoodSet();
    ASSERT_TRUE(QFile::copy(file("_ORM.png"), file("_AO.png")));
    writeDocument(
        R"({"asset": {"version": "2.0"}, "images": [{"uri": "Brick_BaseColor.png"}, {"uri": "Brick_ORM.png"},
            {"uri": "Brick_AO.png"}], "textures": [{"source": 0}, {"source": 1}, {"source": 2}],
            "materials": [{"name": "Brick", "occlusionTexture": {"index": 2}, "pbrMetallicRoughness":
            {"baseColorTexture": {"index": 0}, "metallicRoughnessTexture": {"index": 1}}}]})");
    expectFinding(
        "error: Brick.gltf: Occlusion has an image of its own, but only the red channel of the ORM image is "
        "uploaded: Brick_AO.png. [occlusion-not-orm]");
}

TEST_F(Check, FindsAlphaThatAnOpaqueMaterialIgnores) {
    exportGoodSet();
    redraw("_BaseColor.png", [](const QImage& image) {
        QImage holed = image.convertToFormat(QImage::Format_ARGB32);
        for (int x = 0; x < side; ++x) {
            holed.setPixel(x, 0, qRgba(1, 2, 3, 254));
        }
        return holed;
    });
    expectFinding(
        "warning: Brick_BaseColor.png: The base color is transparent in places, but the material is opaque "
        "and "
        "ignores alpha: 2% of the pixels. [ignored-alpha]");
    edit("\"doubleSided\"", "\"alphaMode\" : \"BLEND\", \"doubleSided\"");
    expectNothing(check());
}

TEST_F(Check, FindsAnInvertedNormalMap) {
    exportGoodSet({u"--flip-normal-green"_s});
    expectFinding(
        "warning: Brick_Normal.png: Green looks inverted: the normal map fits a surface if green points "
        "down, as in DirectX, but in glTF it points up. [normal-inverted]");
}

TEST_F(Check, FindsANormalMapThatIsAPicture) {
    exportGoodSet();
    redraw("_Normal.png", [](const QImage& image) {
        QImage gray(image.size(), QImage::Format_RGB32);
        gray.fill(QColor(150, 140, 160));
        return gray;
    });
    expectFinding(
        "warning: Brick_Normal.png: Many normals do not have length 1, so this may not be a normal map, "
        "or it was edited as a picture: 100% of them. [normal-not-unit]");
}

TEST_F(Check, FindsNormalsThatPointInward) {
    exportGoodSet();
    redraw("_Normal.png", [](const QImage& image) {
        QImage turned = image.convertToFormat(QImage::Format_RGB32);
        for (int y = 0; y < side; ++y) {
            turned.setPixel(0, y, qRgb(128, 128, 0));
        }
        return turned;
    });
    expectFinding(
        "warning: Brick_Normal.png: Normals point into the surface, as their blue is below 128: 2% of them. "
        "[normal-inward]");
}

TEST_F(Check, FindsANameThatIsCut) {
    exportGoodSet();
    edit("\"name\" : \"Brick\"", "\"name\" : \"" + QByteArray(61, 'x') + "ö\"");
    expectNothing(check());
    edit("\"name\" : \"", "\"name\" : \"x");
    expectFinding(
        "warning: Brick.gltf: The material's name is longer than the 63 bytes of an inventory name, and is "
        "cut: it "
        "has 64. [name-cut]");
}

TEST_F(Check, NotesANameOfAFileThatIsCut) {
    exportGoodSet();
    const QByteArray longName = QByteArray(64, 'x') + ".png";
    ASSERT_TRUE(QFile::rename(file("_Normal.png"), set + u'/' + QString::fromLatin1(longName)));
    edit("Brick_Normal.png", longName);
    expectFinding("note: " + longName.toStdString() +
                  ": The image's name is longer than the 63 bytes of an inventory name, and is cut if the "
                  "image is uploaded "
                  "alone: it has 64. [file-name-cut]");
}

TEST_F(Check, NotesAMaterialWithoutImages) {
    exportGoodSet();
    writeDocument(R"({"asset": {"version": "2.0"}, "materials": [{"name": "Brick"}]})");
    const Outcome outcome = check();
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              set.toStdString() +
                  "\n  note: Brick.gltf: The material has no base color image. [no-base-color]"
                  "\n  note: Brick.gltf: The material has no ORM image. [no-orm]"
                  "\n1 folder checked: 0 errors, 0 warnings, 2 notes\n");
}

TEST_F(Check, ReportsLinesOfJson) {
    exportGoodSet();
    ASSERT_TRUE(QFile::remove(file("_ORM.png")));
    const Outcome outcome = check({output() + u"/none"_s, u"--json"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_EQ(
        outcome.output,
        "{\"type\": \"folder\", \"folder\": \"" + set.toStdString() +
            "\", \"findings\": [{\"severity\": \"error\", \"identifier\": \"missing-image\", \"file\": "
            "\"Brick_ORM.png\", \"text\": \"The image is missing.\"}], \"errors\": 1, \"warnings\": 0, "
            "\"notes\": 0}\n{\"type\": \"folder\", \"folder\": \"" +
            output().toStdString() +
            "/none\", \"findings\": [{\"severity\": \"error\", \"identifier\": \"unreadable-folder\", "
            "\"file\": \"\", \"text\": \"The folder can't be read.\"}], \"errors\": 1, \"warnings\": 0, "
            "\"notes\": 0}\n{\"type\": \"summary\", \"folders\": 2, \"errors\": 2, \"warnings\": 0, "
            "\"notes\": 0}\n");
}

TEST_F(Check, TakesPathsRelativeToTheWorkingDirectory) {
    exportGoodSet();
    expectNothing(runCli({u"check"_s, u"output/Brick/"_s}, path({})));
}

TEST_F(Check, NeedsAFolder) {
    const Outcome outcome = runCli({u"check"_s});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.errors, "quarlin-cli: SET is required\nTry 'quarlin-cli check --help'.\n");
    EXPECT_EQ(runCli({u"check"_s, QString()}).errors,
              "quarlin-cli: The command takes a path, not ''\nTry 'quarlin-cli check --help'.\n");
}

/// Sets that Quarlin exports from the sample textures.
class CheckOfSamples : public CliTest, public testing::WithParamInterface<const char*> {
protected:
    const QStringList size{u"--size"_s, QString::fromUtf8(GetParam()), u"--output"_s, output()};

    Outcome checked(const QStringList& arguments) const {
        EXPECT_EQ(runCli(arguments + size).status, 0);
        const QString set =
            output() + u'/' + QDir(output()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
        return runCli({u"check"_s, set});
    }
    QStringList maps() const {
        return {u"maps"_s, u"--source"_s, QString::fromUtf8(SAMPLES_PATH "/brick_wall_basecolor.jpg")};
    }
};

TEST_P(CheckOfSamples, FindsNothingInTheMaterialSet) {
    const Outcome outcome = checked({u"material"_s, u"--folder"_s, QString::fromUtf8(SAMPLES_PATH)});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("\n1 folder checked: 0 errors, 0 warnings, 0 notes\n"));
}

TEST_P(CheckOfSamples, FindsThatTheGreenOfTheGeneratedNormalMapPointsDown) {
    const Outcome outcome = checked(maps());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output,
                HasSubstr(" [normal-green-down]\n1 folder checked: 0 errors, 0 warnings, 1 note\n"));
}

TEST_P(CheckOfSamples, FindsNothingInTheGeneratedSetOnceItsGreenIsFlipped) {
    const Outcome outcome = checked(maps() + QStringList{u"--flip-green"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("\n1 folder checked: 0 errors, 0 warnings, 0 notes\n"));
}

TEST_P(CheckOfSamples, FindsTheORMThatWasNotExported) {
    const Outcome outcome = checked(maps() + QStringList{u"--flip-green"_s, u"--no-orm"_s});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(
        outcome.output,
        HasSubstr("\n  error: brick_wall_basecolor_orm.png: The image is missing. [missing-image]\n"));
}

TEST_P(CheckOfSamples, NotesTheORMThatIsNotNeededWithoutDocument) {
    const Outcome outcome = checked(maps() + QStringList{u"--flip-green"_s, u"--no-orm"_s, u"--no-gltf"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.output, HasSubstr("\n  note: The material has no ORM image. [no-orm]\n"));
}

INSTANTIATE_TEST_SUITE_P(Sizes, CheckOfSamples, testing::Values("512", "2048"),
                         [](const auto& tested) { return std::string("Of") + tested.param; });

}  // namespace
