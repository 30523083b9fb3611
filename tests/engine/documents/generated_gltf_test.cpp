#include "engine/texture_processor.h"
#include "golden_text.h"
#include "model/normal_generator_settings.h"
#include "model/normal_output_names.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
                         documentOf(settingsNamed(u"Old Brick"_s))));
}

TEST(GeneratedGltfDocument, AlwaysNamesTheOrmFile) {
    NormalGeneratorSettings settings = settingsNamed(u"Brick"_s);
    const QByteArray before = documentOf(settings);
    settings.exportORM = false;
    EXPECT_EQ(documentOf(settings), before);
}

TEST(GeneratedGltfDocument, EndsWithoutALineFeed) {
    EXPECT_TRUE(documentOf(settingsNamed(u"Brick"_s)).endsWith("\n}"));
}

TEST(GeneratedGltfDocument, EscapesSlashes) {
    EXPECT_TRUE(TextureProcessor::makeGeneratedGLTFData(NormalOutputNames{u"a/b"_s}, settingsNamed(u"x"_s))
                    .contains("\"uri\" : \"a\\/b_basecolor.png\""));
}

}  // namespace
