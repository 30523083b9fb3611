#include "model/texture_asset.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

TextureAsset assetOfSize(std::int64_t width, std::int64_t height) {
    return {QUrl::fromLocalFile(u"/textures/Brick.png"_s), u"Brick.png"_s, width, height, QImage()};
}

TEST(TextureAsset, LabelsItsSizeWithoutSpaces) {
    EXPECT_EQ(assetOfSize(2048, 1024).sizeLabel(), u"2048x1024"_s);
    EXPECT_EQ(assetOfSize(1, 1).sizeLabel(), u"1x1"_s);
    EXPECT_EQ(assetOfSize(10000, 7).sizeLabel(), u"10000x7"_s);
}

TEST(TextureAsset, KeepsWhatItIsBuiltFrom) {
    QImage preview(3, 2, QImage::Format_RGBA8888_Premultiplied);
    preview.fill(Qt::red);
    const TextureAsset asset{QUrl::fromLocalFile(u"/a/b.jpg"_s), u"b.jpg"_s, 3, 2, preview};
    EXPECT_EQ(asset.url, QUrl::fromLocalFile(u"/a/b.jpg"_s));
    EXPECT_EQ(asset.fileName, u"b.jpg"_s);
    EXPECT_EQ(asset.pixelWidth, 3);
    EXPECT_EQ(asset.pixelHeight, 2);
    EXPECT_EQ(asset.preview, preview);
}

TEST(TextureAsset, EveryConstructionIsItsOwnIdentity) {
    const TextureAsset first = assetOfSize(4, 4);
    const TextureAsset second = assetOfSize(4, 4);
    EXPECT_FALSE(first.id.isNull());
    EXPECT_NE(first.id, second.id);
}

TEST(TextureAsset, ACopyIsTheSameAsset) {
    const TextureAsset asset = assetOfSize(4, 4);
    const TextureAsset copy = asset;
    EXPECT_EQ(copy.id, asset.id);
}

}  // namespace
