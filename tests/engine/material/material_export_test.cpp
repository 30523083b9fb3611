#include "engine/texture_processor.h"
#include "independent_generator.h"
#include "material_fixture.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/output_names.h"
#include "model/output_resolution.h"
#include "model/texture_slot_kind.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialExport : public MaterialJob {};

const QStringList completeSet{u"Brick_BaseColor.png"_s, u"Brick_ORM.png"_s, u"Brick_Normal.png"_s,
                              u"Brick.gltf"_s, u"Brick_SL_PBR_notes.txt"_s};

QStringList sorted(QStringList names) {
    names.sort();
    return names;
}

TEST_F(MaterialExport, OfABaseColorAloneWritesFourFiles) {
    load(TextureSlotKind::baseColor, noisePicture(20, 30, 1));
    const ExportResult result = exported();
    const QStringList expected{u"Brick_BaseColor.png"_s, u"Brick_ORM.png"_s, u"Brick.gltf"_s,
                               u"Brick_SL_PBR_notes.txt"_s};
    EXPECT_EQ(result.files, expected);
    EXPECT_EQ(outputNames(), sorted(expected));
    EXPECT_EQ(readPng(output(u"Brick_BaseColor.png"_s)), noisePicture(20, 30, 1));
    EXPECT_EQ(readPng(output(u"Brick_ORM.png"_s)), constantPicture(20, 30, {255, 166, 0, 255}));
}

TEST_F(MaterialExport, TellsTheFolderItMade) {
    load(TextureSlotKind::baseColor, smoothPicture(4, 4));
    EXPECT_EQ(QDir::cleanPath(exported().folderURL.toLocalFile()), folder.path(u"out/Brick"_s));
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

    EXPECT_TRUE(sameBytes(premultiplied(base), premultiplied(readPng(output(u"Brick_BaseColor.png"_s)))));
    const independent::Bytes occlusionBytes = premultiplied(occlusion);
    const independent::Bytes glossBytes = premultiplied(gloss);
    const independent::Bytes metallicBytes = premultiplied(metallic);
    EXPECT_TRUE(sameBytes(
        independent::packedOrm(&occlusionBytes, &glossBytes, &metallicBytes, 33 * 21, 0, 0, 0, true),
        readPng(output(u"Brick_ORM.png"_s)).bytes));
    std::vector<std::uint8_t> conditioned = premultiplied(normal);
    for (std::size_t at = 0; at < conditioned.size(); at += 4) {
        conditioned[at + 1] = static_cast<std::uint8_t>(255 - conditioned[at + 1]);
        conditioned[at + 3] = 255;
    }
    EXPECT_TRUE(sameBytes(conditioned, readPng(output(u"Brick_Normal.png"_s)).bytes));
}

TEST_F(MaterialExport, WritesTheDocumentsAsTheyAreMade) {
    load(TextureSlotKind::baseColor, smoothPicture(6, 4));
    load(TextureSlotKind::normal, smoothPicture(5, 5));
    exported();
    const OutputNames names{u"Brick"_s};
    EXPECT_EQ(readFile(output(u"Brick.gltf"_s)), TextureProcessor::makeGLTFData(names, settings, true));
    EXPECT_EQ(readFile(output(u"Brick_SL_PBR_notes.txt"_s)),
              TextureProcessor::makeNotes(names, settings, textures, true).toUtf8());
    textures.erase(TextureSlotKind::normal);
    exported();
    EXPECT_EQ(readFile(output(u"Brick.gltf"_s)), TextureProcessor::makeGLTFData(names, settings, false));
    EXPECT_EQ(readFile(output(u"Brick_SL_PBR_notes.txt"_s)),
              TextureProcessor::makeNotes(names, settings, textures, false).toUtf8());
}

TEST_F(MaterialExport, WritesOnlyWhatIsWanted) {
    load(TextureSlotKind::baseColor, smoothPicture(6, 4));
    settings.exportGLTF = false;
    settings.exportNotes = false;
    const QStringList images{u"Brick_BaseColor.png"_s, u"Brick_ORM.png"_s};
    EXPECT_EQ(exported().files, images);
    EXPECT_EQ(outputNames(), images);
    settings.exportNotes = true;
    EXPECT_EQ(exported().files, images + QStringList{u"Brick_SL_PBR_notes.txt"_s});
    settings.exportNotes = false;
    settings.exportGLTF = true;
    EXPECT_EQ(exported().files, images + QStringList{u"Brick.gltf"_s});
}

TEST_F(MaterialExport, ANormalMapIsDarkenedWhereItIsTransparentAndThenOpaque) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 1));
    load(TextureSlotKind::normal, Picture{2, 1, {128, 128, 255, 0, 128, 128, 255, 128}});
    exported();
    EXPECT_EQ(readPng(output(u"Brick_Normal.png"_s)), (Picture{2, 1, {0, 0, 0, 255, 64, 64, 128, 255}}));
}

TEST_F(MaterialExport, AFlatNormalMapFlipsToGreen127) {
    load(TextureSlotKind::baseColor, smoothPicture(3, 3));
    load(TextureSlotKind::normal, constantPicture(3, 3, {128, 128, 255, 255}));
    settings.flipNormalGreen = true;
    exported();
    EXPECT_EQ(readPng(output(u"Brick_Normal.png"_s)), constantPicture(3, 3, {128, 127, 255, 255}));
    settings.flipNormalGreen = false;
    exported();
    EXPECT_EQ(readPng(output(u"Brick_Normal.png"_s)), constantPicture(3, 3, {128, 128, 255, 255}));
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
                          readPng(output(u"Brick_BaseColor.png"_s)).bytes));
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
    EXPECT_EQ(result.files.front(), u"VOREK_PBR_Material_BaseColor.png"_s);
    const Picture base = readPng(folder.url(u"out/VOREK_PBR_Material/VOREK_PBR_Material_BaseColor.png"_s));
    EXPECT_EQ(base, constantPicture(2048, 2048, {9, 8, 7, 255}));
}

TEST_F(MaterialExport, ANameOfSpacesGoesIntoTheDefaultFolder) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 2));
    settings.materialName = u"  "_s;
    exported();
    EXPECT_EQ(folder.names(u"out"_s), QStringList{u"VOREK_PBR_Material"_s});
}

TEST_F(MaterialExport, NoNameLeadsOutOfTheChosenFolder) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 2));
    settings.materialName = u"../../Evil"_s;
    exported();
    EXPECT_EQ(folder.names(u"out"_s), QStringList{u"______Evil"_s});
    EXPECT_EQ(folder.names(), (QStringList{u"in"_s, u"out"_s}));
}

TEST_F(MaterialExport, KeepsLettersOfAnyScriptInFileNames) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 2));
    settings.materialName = u"Gr\u00f6\u00dfe \u7816"_s;
    const ExportResult result = exported();
    EXPECT_EQ(result.files.value(0), u"Gr\u00f6\u00dfe_\u7816_BaseColor.png"_s);
    EXPECT_EQ(folder.names(u"out/Gr\u00f6\u00dfe_\u7816"_s), sorted(result.files));
}

TEST_F(MaterialExport, MakesTheFolderWithItsParents) {
    load(TextureSlotKind::baseColor, smoothPicture(2, 2));
    processor.exportMaterialSet(textures, settings, folder.url(u"out/a/b/c"_s));
    EXPECT_EQ(folder.names(u"out/a/b/c/Brick"_s).size(), 4);
}

TEST_F(MaterialExport, TwiceOverwritesTheSameFiles) {
    load(TextureSlotKind::baseColor, constantPicture(40, 40, {1, 2, 3, 255}));
    exported();
    load(TextureSlotKind::baseColor, smoothPicture(5, 5));
    const QStringList files = exported().files;
    EXPECT_EQ(outputNames(), sorted(files));
    EXPECT_EQ(readPng(output(u"Brick_BaseColor.png"_s)), smoothPicture(5, 5));
}

TEST_F(MaterialExport, LeavesOtherFilesAlone) {
    load(TextureSlotKind::baseColor, smoothPicture(5, 5));
    load(TextureSlotKind::normal, smoothPicture(5, 5));
    exported();
    writeFile(output(u"readme.txt"_s), "mine");
    const QByteArray oldNormal = readFile(output(u"Brick_Normal.png"_s));
    textures.erase(TextureSlotKind::normal);
    exported();
    EXPECT_EQ(readFile(output(u"readme.txt"_s)), "mine");
    // The normal map of an earlier export is one of the other files.
    EXPECT_EQ(readFile(output(u"Brick_Normal.png"_s)), oldNormal);
}

TEST_F(MaterialExport, LeavesNoTemporaryFile) {
    load(TextureSlotKind::baseColor, noisePicture(64, 64, 7));
    load(TextureSlotKind::normal, noisePicture(64, 64, 8));
    const QStringList files = exported().files;
    EXPECT_EQ(outputNames(), sorted(files));
    EXPECT_EQ(folder.names(u"out"_s), QStringList{u"Brick"_s});
}

TEST_F(MaterialExport, ReadsAnInputThatHasChangedSinceItWasLoaded) {
    load(TextureSlotKind::baseColor, smoothPicture(10, 10));
    load(TextureSlotKind::occlusion, constantPicture(10, 10, {50, 50, 50, 255}));
    writePng(input(u"baseColor.png"_s), constantPicture(3, 3, {40, 50, 60, 255}));
    writePng(input(u"occlusion.png"_s), constantPicture(10, 10, {64, 64, 64, 255}));
    exported();
    // The size is that of the loaded texture, but the contents are those of the file.
    EXPECT_EQ(readPng(output(u"Brick_BaseColor.png"_s)), constantPicture(10, 10, {40, 50, 60, 255}));
    EXPECT_EQ(readPng(output(u"Brick_ORM.png"_s)).at(0, 0)[0], 64);
}

TEST_F(MaterialExport, OntoItsOwnInputsGivesTheSameSetAgain) {
    load(TextureSlotKind::baseColor, noisePicture(24, 16, 9, true));
    load(TextureSlotKind::normal, noisePicture(24, 16, 10));
    exported();
    const QByteArray base = readFile(output(u"Brick_BaseColor.png"_s));
    const QByteArray normal = readFile(output(u"Brick_Normal.png"_s));
    const QByteArray orm = readFile(output(u"Brick_ORM.png"_s));
    load(TextureSlotKind::baseColor, output(u"Brick_BaseColor.png"_s));
    load(TextureSlotKind::normal, output(u"Brick_Normal.png"_s));
    EXPECT_EQ(exported().files, completeSet);
    EXPECT_EQ(readFile(output(u"Brick_BaseColor.png"_s)), base);
    EXPECT_EQ(readFile(output(u"Brick_Normal.png"_s)), normal);
    EXPECT_EQ(readFile(output(u"Brick_ORM.png"_s)), orm);
}

TEST_F(MaterialExport, ThePackedMapIsReadBeforeItIsReplaced) {
    load(TextureSlotKind::baseColor, smoothPicture(8, 8));
    folder.makeFolder(u"out/Brick"_s);
    writePng(output(u"Brick_ORM.png"_s), constantPicture(8, 8, {64, 64, 64, 255}));
    load(TextureSlotKind::occlusion, output(u"Brick_ORM.png"_s));
    load(TextureSlotKind::roughness, output(u"Brick_ORM.png"_s));
    exported();
    EXPECT_EQ(readPng(output(u"Brick_ORM.png"_s)), constantPicture(8, 8, {64, 64, 0, 255}));
}

TEST_F(MaterialExport, EveryInputIsReadBeforeTheFirstOutputIsWritten) {
    load(TextureSlotKind::baseColor, smoothPicture(8, 8));
    folder.makeFolder(u"out/Brick"_s);
    writePng(output(u"Brick_ORM.png"_s), constantPicture(8, 8, {1, 2, 3, 255}));
    load(TextureSlotKind::normal, output(u"Brick_ORM.png"_s));
    exported();
    EXPECT_EQ(readPng(output(u"Brick_Normal.png"_s)), constantPicture(8, 8, {1, 2, 3, 255}));
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
