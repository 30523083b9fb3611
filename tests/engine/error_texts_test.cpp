#include "engine_errors.h"
#include "qstring_printing.h"

#include <QUrl>

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

const QUrl file = QUrl::fromLocalFile(QStringLiteral("/tmp/a/notes.txt"));

TEST(ErrorTexts, NameTheFileButNeverItsFolder) {
    EXPECT_EQ(TextureProcessorError::cannotReadImage(file).errorDescription(),
              QStringLiteral("Could not read image: notes.txt"));
    EXPECT_EQ(TextureProcessorError::cannotCreatePNG(file).errorDescription(),
              QStringLiteral("Could not create PNG image: notes.txt"));
    EXPECT_EQ(TextureProcessorError::cannotWritePNG(file).errorDescription(),
              QStringLiteral("Could not write PNG: notes.txt"));
    EXPECT_EQ(TextureProcessorError::cannotWriteText(file).errorDescription(),
              QStringLiteral("Could not write file: notes.txt"));
}

TEST(ErrorTexts, SayWhatIsMissing) {
    EXPECT_EQ(TextureProcessorError::missingBaseColor().errorDescription(),
              QStringLiteral("Base Color texture is required."));
    EXPECT_EQ(TextureProcessorError::missingDiffuseTexture().errorDescription(),
              QStringLiteral("Diffuse/Base texture is required."));
    EXPECT_EQ(TextureProcessorError::missingNormalSource().errorDescription(),
              QStringLiteral("Source texture is required."));
    EXPECT_EQ(TextureProcessorError::cannotCreateBitmap().errorDescription(),
              QStringLiteral("Could not create bitmap buffer."));
}

TEST(ErrorTexts, KeepNamesAsTheyAre) {
    for (const QString& name : {QStringLiteral("my file #1%20.png"), QStringLiteral("Gr\u00f6\u00dfe?.png"),
                                QStringLiteral(".hidden")}) {
        EXPECT_EQ(TextureProcessorError::cannotReadImage(QUrl::fromLocalFile(QStringLiteral("/a b/") + name))
                      .errorDescription(),
                  QStringLiteral("Could not read image: ") + name);
    }
}

TEST(ErrorTexts, NameAFolderByItsLastComponent) {
    EXPECT_EQ(TextureProcessorError::cannotReadImage(QUrl::fromLocalFile(QStringLiteral("/tmp/textures/")))
                  .errorDescription(),
              QStringLiteral("Could not read image: textures"));
}

TEST(ErrorTexts, ErrorsCarryTheirFile) {
    EXPECT_EQ(TextureProcessorError::cannotWritePNG(file).file(), file);
    EXPECT_EQ(TextureProcessorError::cannotWritePNG(file).kind(),
              TextureProcessorError::Case::cannotWritePNG);
    EXPECT_TRUE(TextureProcessorError::missingBaseColor().file().isEmpty());
}

TEST(ErrorTexts, AFileSystemErrorIsNoTextureProcessorError) {
    const FileSystemError error(QUrl::fromLocalFile(QStringLiteral("/out/Brick")), "Not a directory");
    const EngineError& general = error;
    EXPECT_EQ(dynamic_cast<const TextureProcessorError*>(&general), nullptr);
    EXPECT_TRUE(error.errorDescription().contains(QStringLiteral("Brick")));
    EXPECT_TRUE(error.errorDescription().contains(QStringLiteral("Not a directory")));
}

}  // namespace
