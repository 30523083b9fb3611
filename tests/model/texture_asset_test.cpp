#include "texture_asset.h"

#include "qstring_printing.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

TextureAsset assetOfSize(std::int64_t width, std::int64_t height) {
    return {QUrl::fromLocalFile(QStringLiteral("/textures/Brick.png")), QStringLiteral("Brick.png"), width,
            height, QImage()};
}

TEST(TextureAsset, LabelsItsSizeWithoutSpaces) {
    EXPECT_EQ(assetOfSize(2048, 1024).sizeLabel(), QStringLiteral("2048x1024"));
    EXPECT_EQ(assetOfSize(1, 1).sizeLabel(), QStringLiteral("1x1"));
    EXPECT_EQ(assetOfSize(10000, 7).sizeLabel(), QStringLiteral("10000x7"));
}

TEST(TextureAsset, KeepsWhatItIsBuiltFrom) {
    QImage preview(3, 2, QImage::Format_RGBA8888_Premultiplied);
    preview.fill(Qt::red);
    const TextureAsset asset{QUrl::fromLocalFile(QStringLiteral("/a/b.jpg")), QStringLiteral("b.jpg"), 3, 2,
                             preview};
    EXPECT_EQ(asset.url, QUrl::fromLocalFile(QStringLiteral("/a/b.jpg")));
    EXPECT_EQ(asset.fileName, QStringLiteral("b.jpg"));
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
