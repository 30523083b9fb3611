#include "golden_text.h"
#include "texture_processor.h"

#include <gtest/gtest.h>

using namespace quarlin;

namespace {

NormalGeneratorSettings settingsNamed(const QString& name) {
    NormalGeneratorSettings settings;
    settings.materialName = name;
    return settings;
}

QByteArray documentOf(const NormalGeneratorSettings& settings) {
    return TextureProcessor::makeGeneratedGLTFData(NormalOutputNames{settings.safeMaterialName()}, settings);
}

TEST(GeneratedGltfDocument, IsThisToTheByte) {
    EXPECT_TRUE(sameText(QByteArray(R"({
  "asset" : {
    "generator" : "VOREK TECH Quarlin",
    "version" : "2.0"
  },
  "images" : [
    {
      "uri" : "Old_Brick_basecolor.png"
    },
    {
      "uri" : "Old_Brick_orm.png"
    },
    {
      "uri" : "Old_Brick_normal.png"
    }
  ],
  "materials" : [
    {
      "doubleSided" : true,
      "name" : "Old_Brick",
      "normalTexture" : {
        "index" : 2
      },
      "occlusionTexture" : {
        "index" : 1
      },
      "pbrMetallicRoughness" : {
        "baseColorTexture" : {
          "index" : 0
        },
        "metallicFactor" : 1,
        "metallicRoughnessTexture" : {
          "index" : 1
        },
        "roughnessFactor" : 1
      }
    }
  ],
  "textures" : [
    {
      "source" : 0
    },
    {
      "source" : 1
    },
    {
      "source" : 2
    }
  ]
})"),
                         documentOf(settingsNamed(QStringLiteral("Old Brick")))));
}

TEST(GeneratedGltfDocument, AlwaysNamesTheOrmFile) {
    NormalGeneratorSettings settings = settingsNamed(QStringLiteral("Brick"));
    const QByteArray before = documentOf(settings);
    settings.exportORM = false;
    EXPECT_EQ(documentOf(settings), before);
}

TEST(GeneratedGltfDocument, EndsWithoutALineFeed) {
    EXPECT_TRUE(documentOf(settingsNamed(QStringLiteral("Brick"))).endsWith("\n}"));
}

TEST(GeneratedGltfDocument, EscapesSlashes) {
    EXPECT_TRUE(TextureProcessor::makeGeneratedGLTFData(NormalOutputNames{QStringLiteral("a/b")},
                                                        settingsNamed(QStringLiteral("x")))
                    .contains("\"uri\" : \"a\\/b_basecolor.png\""));
}

}  // namespace
