#include "material_fixture.h"
#include "reference_generator.h"

#include <gtest/gtest.h>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialExport : public MaterialJob {};

const QStringList completeSet{QStringLiteral("Brick_BaseColor.png"), QStringLiteral("Brick_ORM.png"),
                              QStringLiteral("Brick_Normal.png"), QStringLiteral("Brick.gltf"),
                              QStringLiteral("Brick_SL_PBR_notes.txt")};

QStringList sorted(QStringList names) {
    names.sort();
    return names;
}

TEST_F(MaterialExport, OfABaseColorAloneWritesFourFiles) {
    load(TextureSlotKind::baseColor, noisePicture(20, 30, 1));
    const ExportResult result = exported();
    const QStringList expected{QStringLiteral("Brick_BaseColor.png"), QStringLiteral("Brick_ORM.png"),
                               QStringLiteral("Brick.gltf"), QStringLiteral("Brick_SL_PBR_notes.txt")};
    EXPECT_EQ(result.files, expected);
    EXPECT_EQ(outputNames(), sorted(expected));
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_BaseColor.png"))), noisePicture(20, 30, 1));
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_ORM.png"))), constantPicture(20, 30, {255, 166, 0, 255}));
}

TEST_F(MaterialExport, TellsTheFolderItMade) {
    load(TextureSlotKind::baseColor, smoothPicture(4, 4));
    EXPECT_EQ(QDir::cleanPath(exported().folderURL.toLocalFile()), folder.path(QStringLiteral("out/Brick")));
}

TEST_F(MaterialExport, OfAllTexturesWritesFiveFilesInOrder) {
    const Picture base = noisePicture(33, 21, 2, true);
    const Picture normal = noisePicture(33, 21, 3, true);
    const Picture occlusion = noisePicture(33, 21, 4);
    const Picture gloss = noisePicture(33, 21, 5);
    const Picture metallic = noisePicture(33, 21, 6, true);
    load(TextureSlotKind::baseColor, base);
    load(TextureSlotKind::normal, normal);
    load(TextureSlotKind::occlusion, occlusion);
    load(TextureSlotKind::roughness, gloss);
    load(TextureSlotKind::metallic, metallic);
    settings.roughnessInputIsGloss = true;
    settings.flipNormalGreen = true;
    EXPECT_EQ(exported().files, completeSet);
    EXPECT_EQ(outputNames(), sorted(completeSet));

    EXPECT_TRUE(sameBytes(premultiplied(base),
                          premultiplied(readPng(output(QStringLiteral("Brick_BaseColor.png"))))));
    const reference::Bytes occlusionBytes = premultiplied(occlusion);
    const reference::Bytes glossBytes = premultiplied(gloss);
    const reference::Bytes metallicBytes = premultiplied(metallic);
    EXPECT_TRUE(
        sameBytes(reference::packedOrm(&occlusionBytes, &glossBytes, &metallicBytes, 33 * 21, 0, 0, 0, true),
                  readPng(output(QStringLiteral("Brick_ORM.png"))).bytes));
    std::vector<std::uint8_t> conditioned = premultiplied(normal);
    for (std::size_t at = 0; at < conditioned.size(); at += 4) {
        conditioned[at + 1] = static_cast<std::uint8_t>(255 - conditioned[at + 1]);
        conditioned[at + 3] = 255;
    }
    EXPECT_TRUE(sameBytes(conditioned, readPng(output(QStringLiteral("Brick_Normal.png"))).bytes));
}

TEST_F(MaterialExport, WritesTheDocumentsAsTheyAreMade) {
    load(TextureSlotKind::baseColor, smoothPicture(6, 4));
    load(TextureSlotKind::normal, smoothPicture(5, 5));
    exported();
    const OutputNames names{QStringLiteral("Brick")};
    EXPECT_EQ(readFile(output(QStringLiteral("Brick.gltf"))),
              TextureProcessor::makeGLTFData(names, settings, true));
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_SL_PBR_notes.txt"))),
              TextureProcessor::makeNotes(names, settings, textures, true).toUtf8());
    textures.erase(TextureSlotKind::normal);
    exported();
    EXPECT_EQ(readFile(output(QStringLiteral("Brick.gltf"))),
              TextureProcessor::makeGLTFData(names, settings, false));
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_SL_PBR_notes.txt"))),
              TextureProcessor::makeNotes(names, settings, textures, false).toUtf8());
}

TEST_F(MaterialExport, WritesOnlyWhatIsWanted) {
    load(TextureSlotKind::baseColor, smoothPicture(6, 4));
    settings.exportGLTF = false;
    settings.exportNotes = false;
    const QStringList images{QStringLiteral("Brick_BaseColor.png"), QStringLiteral("Brick_ORM.png")};
    EXPECT_EQ(exported().files, images);
    EXPECT_EQ(outputNames(), images);
    settings.exportNotes = true;
    EXPECT_EQ(exported().files, images + QStringList{QStringLiteral("Brick_SL_PBR_notes.txt")});
    settings.exportNotes = false;
    settings.exportGLTF = true;
    EXPECT_EQ(exported().files, images + QStringList{QStringLiteral("Brick.gltf")});
}

TEST_F(MaterialExport, ANormalMapIsDarkenedWhereItIsTransparentAndThenOpaque) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 1));
    load(TextureSlotKind::normal, Picture{2, 1, {128, 128, 255, 0, 128, 128, 255, 128}});
    exported();
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_Normal.png"))),
              (Picture{2, 1, {0, 0, 0, 255, 64, 64, 128, 255}}));
}

TEST_F(MaterialExport, AFlatNormalMapFlipsToGreen127) {
    load(TextureSlotKind::baseColor, smoothPicture(3, 3));
    load(TextureSlotKind::normal, constantPicture(3, 3, {128, 128, 255, 255}));
    settings.flipNormalGreen = true;
    exported();
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_Normal.png"))),
              constantPicture(3, 3, {128, 127, 255, 255}));
    settings.flipNormalGreen = false;
    exported();
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_Normal.png"))),
              constantPicture(3, 3, {128, 128, 255, 255}));
}

TEST_F(MaterialExport, AFixedResolutionStretchesEveryImageToASquare) {
    load(TextureSlotKind::baseColor, smoothPicture(300, 200));
    load(TextureSlotKind::normal, smoothPicture(64, 128));
    load(TextureSlotKind::roughness, smoothPicture(10, 10));
    settings.outputResolution = OutputResolution::px512;
    exported();
    for (const char* name : {"Brick_BaseColor.png", "Brick_ORM.png", "Brick_Normal.png"}) {
        const Picture picture = readPng(output(QString::fromLatin1(name)));
        EXPECT_EQ(picture.width, 512) << name;
        EXPECT_EQ(picture.height, 512) << name;
    }
    EXPECT_TRUE(sameBytes(processor.renderImage(textures.at(TextureSlotKind::baseColor), 512, 512).pixels,
                          readPng(output(QStringLiteral("Brick_BaseColor.png"))).bytes));
}

TEST_F(MaterialExport, BaseSizeGivesEveryImageTheBaseColorsSize) {
    load(TextureSlotKind::baseColor, smoothPicture(30, 20));
    load(TextureSlotKind::normal, smoothPicture(64, 128));
    load(TextureSlotKind::occlusion, smoothPicture(7, 9));
    exported();
    for (const char* name : {"Brick_BaseColor.png", "Brick_ORM.png", "Brick_Normal.png"}) {
        const Picture picture = readPng(output(QString::fromLatin1(name)));
        EXPECT_EQ(picture.width, 30) << name;
        EXPECT_EQ(picture.height, 20) << name;
    }
}

TEST_F(MaterialExport, TheDefaultSizeIs2048) {
    load(TextureSlotKind::baseColor, constantPicture(2, 2, {9, 8, 7, 255}));
    settings = ConversionSettings();
    const ExportResult result = exported();
    EXPECT_EQ(result.files.front(), QStringLiteral("VOREK_PBR_Material_BaseColor.png"));
    const Picture base =
        readPng(folder.url(QStringLiteral("out/VOREK_PBR_Material/VOREK_PBR_Material_BaseColor.png")));
    EXPECT_EQ(base, constantPicture(2048, 2048, {9, 8, 7, 255}));
}

TEST_F(MaterialExport, ANameOfSpacesGoesIntoTheDefaultFolder) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 2));
    settings.materialName = QStringLiteral("  ");
    exported();
    EXPECT_EQ(folder.names(QStringLiteral("out")), QStringList{QStringLiteral("VOREK_PBR_Material")});
}

TEST_F(MaterialExport, NoNameLeadsOutOfTheChosenFolder) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 2));
    settings.materialName = QStringLiteral("../../Evil");
    exported();
    EXPECT_EQ(folder.names(QStringLiteral("out")), QStringList{QStringLiteral("______Evil")});
    EXPECT_EQ(folder.names(), (QStringList{QStringLiteral("in"), QStringLiteral("out")}));
}

TEST_F(MaterialExport, KeepsLettersOfAnyScriptInFileNames) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 2));
    settings.materialName = QStringLiteral("Gr\u00f6\u00dfe \u7816");
    const ExportResult result = exported();
    EXPECT_EQ(result.files.value(0), QStringLiteral("Gr\u00f6\u00dfe_\u7816_BaseColor.png"));
    EXPECT_EQ(folder.names(QStringLiteral("out/Gr\u00f6\u00dfe_\u7816")), sorted(result.files));
}

TEST_F(MaterialExport, MakesTheFolderWithItsParents) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 2));
    processor.exportMaterialSet(textures, settings, folder.url(QStringLiteral("out/a/b/c")));
    EXPECT_EQ(folder.names(QStringLiteral("out/a/b/c/Brick")).size(), 4);
}

TEST_F(MaterialExport, TwiceOverwritesTheSameFiles) {
    load(TextureSlotKind::baseColor, constantPicture(40, 40, {1, 2, 3, 255}));
    exported();
    load(TextureSlotKind::baseColor, smoothPicture(5, 5));
    const QStringList files = exported().files;
    EXPECT_EQ(outputNames(), sorted(files));
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_BaseColor.png"))), smoothPicture(5, 5));
}

TEST_F(MaterialExport, LeavesOtherFilesAlone) {
    load(TextureSlotKind::baseColor, smoothPicture(5, 5));
    load(TextureSlotKind::normal, smoothPicture(5, 5));
    exported();
    writeFile(output(QStringLiteral("readme.txt")), "mine");
    const QByteArray oldNormal = readFile(output(QStringLiteral("Brick_Normal.png")));
    textures.erase(TextureSlotKind::normal);
    exported();
    EXPECT_EQ(readFile(output(QStringLiteral("readme.txt"))), "mine");
    // The normal map of an earlier export is another file too.
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_Normal.png"))), oldNormal);
}

TEST_F(MaterialExport, LeavesNoTemporaryFile) {
    load(TextureSlotKind::baseColor, noisePicture(64, 64, 7));
    load(TextureSlotKind::normal, noisePicture(64, 64, 8));
    const QStringList files = exported().files;
    EXPECT_EQ(outputNames(), sorted(files));
    EXPECT_EQ(folder.names(QStringLiteral("out")), QStringList{QStringLiteral("Brick")});
}

TEST_F(MaterialExport, ReadsAnInputThatHasChangedSinceItWasLoaded) {
    load(TextureSlotKind::baseColor, smoothPicture(10, 10));
    load(TextureSlotKind::occlusion, constantPicture(10, 10, {50, 50, 50, 255}));
    writePng(input(QStringLiteral("baseColor.png")), constantPicture(3, 3, {40, 50, 60, 255}));
    writePng(input(QStringLiteral("occlusion.png")), constantPicture(10, 10, {64, 64, 64, 255}));
    exported();
    // The size stays that of the loading; the content is the file's.
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_BaseColor.png"))),
              constantPicture(10, 10, {40, 50, 60, 255}));
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_ORM.png"))).at(0, 0)[0], 64);
}

TEST_F(MaterialExport, OntoItsOwnInputsGivesTheSameSetAgain) {
    load(TextureSlotKind::baseColor, noisePicture(24, 16, 9, true));
    load(TextureSlotKind::normal, noisePicture(24, 16, 10));
    exported();
    const QByteArray base = readFile(output(QStringLiteral("Brick_BaseColor.png")));
    const QByteArray normal = readFile(output(QStringLiteral("Brick_Normal.png")));
    const QByteArray orm = readFile(output(QStringLiteral("Brick_ORM.png")));
    load(TextureSlotKind::baseColor, output(QStringLiteral("Brick_BaseColor.png")));
    load(TextureSlotKind::normal, output(QStringLiteral("Brick_Normal.png")));
    EXPECT_EQ(exported().files, completeSet);
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_BaseColor.png"))), base);
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_Normal.png"))), normal);
    EXPECT_EQ(readFile(output(QStringLiteral("Brick_ORM.png"))), orm);
}

TEST_F(MaterialExport, ThePackedMapIsReadBeforeItIsReplaced) {
    load(TextureSlotKind::baseColor, smoothPicture(8, 8));
    folder.makeFolder(QStringLiteral("out/Brick"));
    writePng(output(QStringLiteral("Brick_ORM.png")), constantPicture(8, 8, {64, 64, 64, 255}));
    load(TextureSlotKind::occlusion, output(QStringLiteral("Brick_ORM.png")));
    load(TextureSlotKind::roughness, output(QStringLiteral("Brick_ORM.png")));
    exported();
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_ORM.png"))), constantPicture(8, 8, {64, 64, 0, 255}));
}

TEST_F(MaterialExport, EveryInputIsReadBeforeTheFirstOutputIsWritten) {
    load(TextureSlotKind::baseColor, smoothPicture(8, 8));
    folder.makeFolder(QStringLiteral("out/Brick"));
    writePng(output(QStringLiteral("Brick_ORM.png")), constantPicture(8, 8, {1, 2, 3, 255}));
    load(TextureSlotKind::normal, output(QStringLiteral("Brick_ORM.png")));
    exported();
    EXPECT_EQ(readPng(output(QStringLiteral("Brick_Normal.png"))), constantPicture(8, 8, {1, 2, 3, 255}));
}

TEST_F(MaterialExport, IsTheSameEveryTime) {
    load(TextureSlotKind::baseColor, noisePicture(100, 80, 11, true));
    load(TextureSlotKind::occlusion, noisePicture(50, 90, 12));
    settings.outputResolution = OutputResolution::px512;
    const QStringList files = exported().files;
    std::vector<QByteArray> first;
    for (const QString& file : files) {
        first.push_back(readFile(output(file)));
    }
    exported();
    for (qsizetype index = 0; index < files.size(); ++index) {
        EXPECT_EQ(readFile(output(files[index])), first[static_cast<std::size_t>(index)])
            << files[index].toStdString();
    }
}

}  // namespace
