#include "engine/texture_processor.h"
#include "golden_text.h"
#include "model/conversion_settings.h"
#include "model/output_names.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

ConversionSettings settingsNamed(const QString& name) {
    ConversionSettings settings;
    settings.materialName = name;
    return settings;
}

QByteArray documentOf(const QString& name, bool hasNormal) {
    const ConversionSettings settings = settingsNamed(name);
    return TextureProcessor::makeGLTFData(OutputNames{settings.safeMaterialName()}, settings, hasNormal);
}

TEST(GltfDocument, WithNormalMapIsThisToTheByte) {
    EXPECT_TRUE(sameText(QByteArray(R"({
  "asset" : {
    "generator" : "VOREK TECH Quarlin",
    "version" : "2.0"
  },
  "images" : [
    {
      "uri" : "Brick_BaseColor.png"
    },
    {
      "uri" : "Brick_ORM.png"
    },
    {
      "uri" : "Brick_Normal.png"
    }
  ],
  "materials" : [
    {
      "doubleSided" : true,
      "name" : "Brick",
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
                         documentOf(u"Brick"_s, true)));
}

TEST(GltfDocument, WithoutNormalMapIsThisToTheByte) {
    EXPECT_TRUE(sameText(QByteArray(R"({
  "asset" : {
    "generator" : "VOREK TECH Quarlin",
    "version" : "2.0"
  },
  "images" : [
    {
      "uri" : "Old_Brick_BaseColor.png"
    },
    {
      "uri" : "Old_Brick_ORM.png"
    }
  ],
  "materials" : [
    {
      "doubleSided" : true,
      "name" : "Old_Brick",
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
    }
  ]
})"),
                         documentOf(u"Old Brick"_s, false)));
}

TEST(GltfDocument, EndsWithoutALineFeed) {
    EXPECT_TRUE(documentOf(u"Brick"_s, true).endsWith("\n}"));
    EXPECT_TRUE(documentOf(u"Brick"_s, false).endsWith("\n}"));
}

TEST(GltfDocument, IsTheSameForTheSameInput) {
    EXPECT_EQ(documentOf(u"Brick"_s, true), documentOf(u"Brick"_s, true));
}

TEST(GltfDocument, IsJson) {
    for (const bool hasNormal : {false, true}) {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(documentOf(u"Brick"_s, hasNormal), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
        EXPECT_EQ(document.object().keys(), u"asset,images,materials,textures"_s.split(u','));
    }
}

TEST(GltfDocument, NamesTheMaterialByItsCleanedName) {
    const QByteArray document = documentOf(u"  Old Brick.Wall "_s, false);
    EXPECT_TRUE(document.contains("\"name\" : \"Old_Brick_Wall\""));
    EXPECT_TRUE(document.contains("\"uri\" : \"Old_Brick_Wall_BaseColor.png\""));
}

TEST(GltfDocument, KeepsLettersOfAnyScriptAsUtf8) {
    const QByteArray document = documentOf(u"Gr\u00f6\u00dfe \u7816\U00020BB7"_s, true);
    EXPECT_TRUE(
        document.contains("\"name\" : \"Gr\xc3\xb6\xc3\x9f"
                          "e_\xe7\xa0\x96\xf0\xa0\xae\xb7\""));
    EXPECT_TRUE(
        document.contains("\"uri\" : \"Gr\xc3\xb6\xc3\x9f"
                          "e_\xe7\xa0\x96\xf0\xa0\xae\xb7_ORM.png\""));
}

TEST(GltfDocument, EscapesSlashes) {
    const QByteArray document =
        TextureProcessor::makeGLTFData(OutputNames{u"a/b"_s}, settingsNamed(u"x"_s), true);
    EXPECT_TRUE(document.contains("\"uri\" : \"a\\/b_BaseColor.png\""));
    EXPECT_TRUE(document.contains("\"uri\" : \"a\\/b_ORM.png\""));
    EXPECT_TRUE(document.contains("\"uri\" : \"a\\/b_Normal.png\""));
}

TEST(GltfDocument, EscapesQuotesBackslashesAndControlCharacters) {
    const QString name = u"a\"b\\c\nd\te\rf\bg\fh\x01i"_s;
    const QByteArray document =
        TextureProcessor::makeGLTFData(OutputNames{name}, settingsNamed(u"x"_s), false);
    EXPECT_TRUE(document.contains("\"uri\" : \"a\\\"b\\\\c\\nd\\te\\rf\\bg\\fh\\u0001i_ORM.png\""))
        << document.toStdString();
    const QJsonArray images = QJsonDocument::fromJson(document).object().value(u"images"_s).toArray();
    EXPECT_EQ(images[1].toObject().value(u"uri"_s).toString(), name + u"_ORM.png"_s);
}

TEST(GltfDocument, DoesNotDependOnTheWriteSwitches) {
    ConversionSettings settings = settingsNamed(u"Brick"_s);
    const QByteArray before = TextureProcessor::makeGLTFData(OutputNames{u"Brick"_s}, settings, true);
    settings.exportGLTF = false;
    settings.exportNotes = false;
    settings.flipNormalGreen = true;
    settings.defaultMetallic = 1;
    EXPECT_EQ(TextureProcessor::makeGLTFData(OutputNames{u"Brick"_s}, settings, true), before);
}

}  // namespace
