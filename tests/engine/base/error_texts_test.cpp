#include "engine/base/texture_processor_error.h"
#include "engine_errors.h"
#include "qstring_printing.h"

#include <QUrl>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

const QUrl file = QUrl::fromLocalFile(u"/tmp/a/notes.txt"_s);

TEST(ErrorTexts, NameTheFileButNeverItsFolder) {
    EXPECT_EQ(TextureProcessorError::cannotReadImage(file).errorDescription(),
              u"Could not read image: notes.txt"_s);
    EXPECT_EQ(TextureProcessorError::cannotCreatePNG(file).errorDescription(),
              u"Could not create PNG image: notes.txt"_s);
    EXPECT_EQ(TextureProcessorError::cannotWritePNG(file).errorDescription(),
              u"Could not write PNG: notes.txt"_s);
    EXPECT_EQ(TextureProcessorError::cannotWriteText(file).errorDescription(),
              u"Could not write file: notes.txt"_s);
}

TEST(ErrorTexts, SayWhatIsMissing) {
    EXPECT_EQ(TextureProcessorError::missingBaseColor().errorDescription(),
              u"Base Color texture is required."_s);
    EXPECT_EQ(TextureProcessorError::missingDiffuseTexture().errorDescription(),
              u"Diffuse/Base texture is required."_s);
    EXPECT_EQ(TextureProcessorError::missingNormalSource().errorDescription(),
              u"Source texture is required."_s);
    EXPECT_EQ(TextureProcessorError::cannotCreateBitmap().errorDescription(),
              u"Could not create bitmap buffer."_s);
}

TEST(ErrorTexts, KeepNamesAsTheyAre) {
    for (const QString& name : {u"my file #1%20.png"_s, u"Gr\u00f6\u00dfe?.png"_s, u".hidden"_s}) {
        EXPECT_EQ(
            TextureProcessorError::cannotReadImage(QUrl::fromLocalFile(u"/a b/"_s + name)).errorDescription(),
            u"Could not read image: "_s + name);
    }
}

TEST(ErrorTexts, NameAFolderByItsLastComponent) {
    EXPECT_EQ(
        TextureProcessorError::cannotReadImage(QUrl::fromLocalFile(u"/tmp/textures/"_s)).errorDescription(),
        u"Could not read image: textures"_s);
}

TEST(ErrorTexts, ErrorsCarryTheirFile) {
    EXPECT_EQ(TextureProcessorError::cannotWritePNG(file).file(), file);
    EXPECT_EQ(TextureProcessorError::cannotWritePNG(file).kind(),
              TextureProcessorError::Case::cannotWritePNG);
    EXPECT_TRUE(TextureProcessorError::missingBaseColor().file().isEmpty());
}

TEST(ErrorTexts, AFileSystemErrorIsNoTextureProcessorError) {
    const FileSystemError error(QUrl::fromLocalFile(u"/out/Brick"_s), "Not a directory");
    const EngineError& general = error;
    EXPECT_EQ(dynamic_cast<const TextureProcessorError*>(&general), nullptr);
    EXPECT_TRUE(error.errorDescription().contains(u"Brick"_s));
    EXPECT_TRUE(error.errorDescription().contains(u"Not a directory"_s));
}

}  // namespace
