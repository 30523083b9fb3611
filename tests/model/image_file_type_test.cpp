#include "model/image_file_type.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

TEST(ImageExtension, IsToldInAnyCase) {
    for (const char* extension : {"png", "PNG", "jpg", "Jpeg", "jpe", "tif", "tiff", "bmp", "gif", "heic",
                                  "heif", "webp", "AVIF", "tga"}) {
        EXPECT_TRUE(isImageExtension(QString::fromLatin1(extension))) << extension;
    }
}

TEST(ReadFormats, AreNamed) {
    EXPECT_EQ(readFormats().join(u' ').toStdString(), "PNG JPEG TIFF BMP GIF HEIC WebP AVIF Targa");
}

TEST(ImageExtension, IsNoneForOtherFiles) {
    for (const char* extension : {"", " ", "txt", "exr", "psd", ".png", "png ", "jpg jpeg", "gltf"}) {
        EXPECT_FALSE(isImageExtension(QString::fromLatin1(extension))) << extension;
    }
}

TEST(UnreadImageExtension, IsOneOfAPictureThatCannotBeRead) {
    for (const char* extension : {"exr", "HDR", "psd", "dds"}) {
        EXPECT_TRUE(isUnreadImageExtension(QString::fromLatin1(extension))) << extension;
        EXPECT_FALSE(isImageExtension(QString::fromLatin1(extension))) << extension;
    }
    for (const char* extension : {"", "txt", "png", "blend"}) {
        EXPECT_FALSE(isUnreadImageExtension(QString::fromLatin1(extension))) << extension;
    }
}

}  // namespace
