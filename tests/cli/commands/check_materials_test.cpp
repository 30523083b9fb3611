// What `quarlin-cli check` finds in materials: values, uses of images, containers.

#include "check_fixture.h"
#include "jpeg_files.h"
#include "picture.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;
using testing::HasSubstr;

namespace {

class CheckMaterials : public Check {
protected:
    /// Inserts members into the material of the set's .gltf.
    void addToMaterial(const QByteArray& members) const {
        edit("\"doubleSided\"", members + ", \"doubleSided\"");
    }
    void addToSurface(const QByteArray& members) const {
        edit("\"baseColorTexture\"", members + ", \"baseColorTexture\"");
    }
    void expectWarnings(const std::vector<std::string>& warnings) const {
        const Outcome outcome = check();
        EXPECT_EQ(outcome.status, 3);
        for (const std::string& warning : warnings) {
            EXPECT_THAT(outcome.output, HasSubstr(warning));
        }
        EXPECT_THAT(outcome.output, HasSubstr("0 errors, " + std::to_string(warnings.size()) + " warning"));
    }
    /// The set's document as a .glb with all images in its buffer.
    QByteArray asGLB() const {
        QJsonObject document = QJsonDocument::fromJson(bytesOf(file(".gltf"))).object();
        QByteArray buffer;
        QJsonArray views;
        QJsonArray images;
        for (const auto& image : document[u"images"_s].toArray()) {
            const QByteArray bytes = bytesOf(set + u'/' + image.toObject()[u"uri"_s].toString());
            views += QJsonObject{
                {u"buffer"_s, 0}, {u"byteOffset"_s, buffer.size()}, {u"byteLength"_s, bytes.size()}};
            images += QJsonObject{{u"bufferView"_s, images.size()}, {u"mimeType"_s, u"image/png"_s}};
            buffer += bytes;
        }
        document[u"images"_s] = images;
        document[u"bufferViews"_s] = views;
        document[u"buffers"_s] = QJsonArray{QJsonObject{{u"byteLength"_s, buffer.size()}}};
        const QByteArray json = QJsonDocument(document).toJson(QJsonDocument::Compact);
        return glb(json, buffer);
    }
    static QByteArray glb(const QByteArray& json, const QByteArray& buffer) {
        const auto word = [](qsizetype value) {
            QByteArray bytes(4, '\0');
            qToLittleEndian(static_cast<quint32>(value), bytes.data());
            return bytes;
        };
        return "glTF" + word(2) + word(12 + 16 + json.size() + buffer.size()) + word(json.size()) + "JSON" +
               json + word(buffer.size()) + QByteArray("BIN\0", 4) + buffer;
    }
};

TEST_F(CheckMaterials, FindAnInvalidAlphaMode) {
    exportGoodSet();
    addToMaterial("\"alphaMode\" : \"GLASS\"");
    expectFinding(
        "error: Brick.gltf: The alpha mode is not one of OPAQUE, MASK and BLEND: GLASS. "
        "[invalid-alpha-mode]");
}

TEST_F(CheckMaterials, FindFactorsOutOfRange) {
    for (const char* factor :
         {"\"metallicFactor2\" : 1", "\"baseColorFactor\" : [1, 1, 2, 1]", "\"baseColorFactor\" : \"red\""}) {
        exportGoodSet();
        addToSurface(factor);
        if (QByteArray(factor).startsWith("\"metallicFactor2")) {
            expectNothing(check());
        } else {
            expectFinding(
                "error: Brick.gltf: A factor is out of its range: baseColorFactor. [invalid-factor]");
        }
    }
    exportGoodSet();
    edit("\"roughnessFactor\" : 1", "\"roughnessFactor\" : 1.5");
    expectFinding("error: Brick.gltf: A factor is out of its range: roughnessFactor. [invalid-factor]");
    exportGoodSet();
    addToMaterial("\"alphaCutoff\" : -1");
    expectFinding("error: Brick.gltf: A factor is out of its range: alphaCutoff. [invalid-factor]");
}

TEST_F(CheckMaterials, FindFactorsThatSwitchATextureOff) {
    exportGoodSet();
    addToSurface("\"baseColorFactor\" : [0, 0, 0, 1]");
    expectFinding(
        "warning: Brick.gltf: A factor of zero switches a texture off: baseColorFactor. [factor-off]");
    exportGoodSet();
    edit("\"normalTexture\" : {", "\"normalTexture\" : { \"scale\" : 0,");
    expectFinding(
        "warning: Brick.gltf: A factor of zero switches a texture off: scale of normalTexture. [factor-off]");
    exportGoodSet();
    edit("\"occlusionTexture\" : {", "\"occlusionTexture\" : { \"strength\" : 0,");
    expectFinding("warning: Brick.gltf: A factor of zero switches a texture off: strength. [factor-off]");
}

TEST_F(CheckMaterials, FindAMetallicFactorOfZeroOnlyWhereTheTextureHasValues) {
    exportGoodSet();
    edit("\"metallicFactor\" : 1", "\"metallicFactor\" : 0");
    expectNothing(check());
    redraw("_ORM.png", [](const QImage& image) {
        QImage metal = image.convertToFormat(QImage::Format_RGB32);
        metal.setPixel(3, 3, qRgb(255, 166, 255));
        return metal;
    });
    expectFinding(
        "warning: Brick.gltf: A factor of zero switches a texture off: metallicFactor. [factor-off]");
}

TEST_F(CheckMaterials, LookAtTheEmissiveTexture) {
    exportGoodSet();
    ASSERT_TRUE(QFile::copy(file("_BaseColor.png"), file("_Glow.png")));
    edit("\"images\" : [", "\"images\" : [ { \"uri\" : \"Brick_Glow.png\" },");
    QByteArray text = bytesOf(file(".gltf"));
    // The images moved up by one.
    for (const char* index : {"2", "1", "0"}) {
        text.replace(QByteArray("\"source\" : ") + index,
                     QByteArray("\"source\" : ") + QByteArray::number(QByteArray(index).toInt() + 1));
    }
    text.replace("\"textures\" : [", "\"textures\" : [ { \"source\" : 0 },");
    for (const char* index : {"2", "1", "0"}) {
        text.replace(QByteArray("\"index\" : ") + index,
                     QByteArray("\"index\" : ") + QByteArray::number(QByteArray(index).toInt() + 1));
    }
    text.replace("\"doubleSided\"",
                 "\"emissiveTexture\" : { \"index\" : 0 }, \"emissiveFactor\" : [1, 1, 1], \"doubleSided\"");
    writeDocument(text);
    expectNothing(check());
    redraw("_Glow.png", [](const QImage& image) { return image.scaled(side / 2, side / 2); });
    expectFinding(
        "warning: Brick_Glow.png: The images of the material have different sizes: Brick_BaseColor.png has "
        "another size. [different-sizes]");
    ASSERT_TRUE(QFile::remove(file("_Glow.png")));
    expectFinding("error: Brick_Glow.png: The image is missing. [missing-image]");
}

TEST_F(CheckMaterials, FindAnEmissiveTextureThatIsOffByDefault) {
    exportGoodSet();
    addToMaterial("\"emissiveTexture\" : { \"index\" : 0 }");
    expectFinding(
        "warning: Brick.gltf: A factor of zero switches a texture off: emissiveFactor is missing. "
        "[factor-off]");
}

TEST_F(CheckMaterials, FindOtherTextureCoordinates) {
    exportGoodSet();
    edit("\"normalTexture\" : {", "\"normalTexture\" : { \"texCoord\" : 1,");
    expectFinding(
        "warning: Brick.gltf: A texture uses another set of texture coordinates than the first, which the "
        "viewer alone reads: normalTexture. [other-tex-coord]");
}

TEST_F(CheckMaterials, FindExtensionsThatTheViewerDoesNotKnow) {
    exportGoodSet();
    edit("\"images\"", "\"extensionsRequired\" : [\"KHR_texture_transform\"], \"images\"");
    expectNothing(check());
    edit("KHR_texture_transform", "KHR_materials_clearcoat");
    expectFinding(
        "error: Brick.gltf: The document requires an extension that the viewer does not know: "
        "KHR_materials_clearcoat. [required-extension]");
    edit("KHR_materials_clearcoat", "EXT_texture_webp");
    expectFinding(
        "error: Brick.gltf: The images are WebP (EXT_texture_webp), which the viewer does not read. "
        "[webp-texture]");
}

TEST_F(CheckMaterials, FindATextureThatIsOnlyThereAsWebp) {
    exportGoodSet();
    edit("\"source\" : 2", "\"extensions\" : { \"EXT_texture_webp\" : { \"source\" : 2 } }");
    expectFinding(
        "error: Brick.gltf: The images are WebP (EXT_texture_webp), which the viewer does not read: "
        "normalTexture. [webp-texture]");
}

TEST_F(CheckMaterials, FindAnORMWhoseChannelsAreTheSame) {
    exportGoodSet();
    redraw("_ORM.png", [](const QImage& image) {
        QImage gray = image.convertToFormat(QImage::Format_RGB32);
        for (int x = 0; x < side; ++x) {
            for (int y = 0; y < side; ++y) {
                gray.setPixel(x, y, qRgb(x, x, x));
            }
        }
        return gray;
    });
    expectFinding(
        "warning: Brick_ORM.png: Red, green and blue of the ORM image are the same, so it may be a map for a "
        "single channel. [gray-orm]");
}

TEST_F(CheckMaterials, AcceptAnORMOfOneGray) {
    exportGoodSet({u"--default-roughness"_s, u"1"_s, u"--default-metallic"_s, u"1"_s});
    expectNothing(check());
}

TEST_F(CheckMaterials, FindOcclusionThatIsBlack) {
    exportGoodSet({u"--default-occlusion"_s, u"0"_s});
    expectFinding(
        "warning: Brick_ORM.png: The red of the ORM image is black everywhere, so no light from around "
        "reaches the surface. [black-occlusion]");
}

TEST_F(CheckMaterials, FindOneImageForTwoPurposes) {
    exportGoodSet();
    edit("\"normalTexture\" : {\n        \"index\" : 2", "\"normalTexture\" : {\n        \"index\" : 1");
    EXPECT_THAT(check().output,
                HasSubstr("warning: Brick_ORM.png: The same image is used for different purposes. "
                          "[shared-image]\n"));
}

TEST_F(CheckMaterials, FindANormalMapInPlaceOfTheColor) {
    exportGoodSet();
    redraw("_BaseColor.png", [](const QImage&) { return bumpyNormals(); });
    expectFinding("warning: Brick_BaseColor.png: The base color looks like a normal map. [normal-as-color]");
    redraw("_BaseColor.png", [](const QImage& image) {
        QImage plain(image.size(), QImage::Format_RGB32);
        plain.fill(QColor(128, 128, 255));
        return plain;
    });
    expectNothing(check());
}

TEST_F(CheckMaterials, FindANormalMapThatIsTurnedInsideOut) {
    exportGoodSet();
    // The heights of `bumpyNormals`: occlusion is darker where the surface is low.
    redraw("_ORM.png", [](const QImage& image) {
        QImage orm = image.convertToFormat(QImage::Format_RGB32);
        for (int x = 0; x < side; ++x) {
            for (int y = 0; y < side; ++y) {
                const double height = std::sin(x / 3.0) * std::sin(y / 4.0);
                orm.setPixel(x, y, qRgb(static_cast<int>(155 + 100 * height), 166, 0));
            }
        }
        return orm;
    });
    expectNothing(check());
    redraw("_Normal.png", [](const QImage& image) {
        QImage turned = image.convertToFormat(QImage::Format_RGB32);
        for (int x = 0; x < side; ++x) {
            for (int y = 0; y < side; ++y) {
                const QRgb normal = turned.pixel(x, y);
                turned.setPixel(x, y, qRgb(255 - qRed(normal), 255 - qGreen(normal), qBlue(normal)));
            }
        }
        return turned;
    });
    expectFinding(
        "warning: Brick_Normal.png: Red and green both look inverted: where the ORM image says that a place "
        "is shaded, the normal map has a bump. [normal-reversed]");
}

TEST_F(CheckMaterials, FindInksOfPrint) {
    exportGoodSet();
    fixtures::Picture picture = fixtures::constantPicture(side, side, {10, 20, 30, 40});
    write(set + u"/Brick_BaseColor.jpg"_s, fixtures::inkJpeg(picture));
    edit("Brick_BaseColor.png", "Brick_BaseColor.jpg");
    expectFinding(
        "error: Brick_BaseColor.jpg: The image has the four inks of print (CMYK) in place of red, green and "
        "blue. [cmyk-image]");
}

TEST_F(CheckMaterials, AreReadFromADocument) {
    exportGoodSet();
    const Outcome outcome = runCli({u"check"_s, file(".gltf")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              file(".gltf").toStdString() + "\n1 folder checked: 0 errors, 0 warnings, 0 notes\n");
}

TEST_F(CheckMaterials, AreReadFromABinaryDocument) {
    exportGoodSet();
    const QString glb = path(u"Brick.glb"_s);
    write(glb, asGLB());
    EXPECT_EQ(runCli({u"check"_s, glb}).output,
              glb.toStdString() + "\n1 folder checked: 0 errors, 0 warnings, 0 notes\n");
    redraw("_Normal.png", [](const QImage& image) { return image.scaled(side / 2, side / 2); });
    write(glb, asGLB());
    EXPECT_THAT(runCli({u"check"_s, glb}).output,
                HasSubstr("  warning: Brick.glb image 2: The images of the material have different sizes"));
    const QByteArray whole = bytesOf(glb);
    for (const qsizetype size : {qsizetype{0}, qsizetype{11}, qsizetype{30}, whole.size() - 1}) {
        write(glb, whole.left(size));
        EXPECT_THAT(runCli({u"check"_s, glb}).output, HasSubstr("[invalid-glb]")) << size;
    }
}

TEST_F(CheckMaterials, AreReadFromImagesInTheDocument) {
    exportGoodSet();
    const QByteArray image = bytesOf(file("_Normal.png"));
    edit("\"Brick_Normal.png\"", "\"data:image/png;base64," + image.toBase64() + '"');
    expectNothing(check());
    edit(image.toBase64(), image.left(100).toBase64());
    expectFinding(
        "error: Brick.gltf image 2: The file is not a complete, undamaged image. [undecodable-image]");
    edit("data:image/png;base64,", "data:image/png;base64,#");
    expectFinding(
        "error: Brick.gltf: The .gltf does not describe a glTF 2.0 material: the image of normalTexture is "
        "not complete. [invalid-gltf]");
}

TEST_F(CheckMaterials, NoteAnImageInABufferFile) {
    exportGoodSet();
    edit("\"uri\" : \"Brick_Normal.png\"", "\"bufferView\" : 0");
    edit("\"images\"",
         "\"buffers\" : [{\"uri\" : \"a.bin\"}], \"bufferViews\" : [{\"buffer\" : 0}], \"images\"");
    expectFinding(
        "note: Brick.gltf: An image is part of a buffer that is a file of its own, and is not checked: that "
        "of normalTexture. [embedded-image]");
}

TEST_F(CheckMaterials, AreFoundBelowAFolder) {
    const QString color = writeImage(u"color.png"_s, patternedImage(side, side, 1));
    for (const char* name : {"A", "B"}) {
        ASSERT_EQ(runCli({u"maps"_s, u"--source"_s, color, u"--name"_s, QString::fromUtf8(name), u"--size"_s,
                          u"base"_s, u"--output"_s, output() + u"/walls"_s})
                      .status,
                  0);
    }
    const std::string folder = output().toStdString() + "/walls/";
    EXPECT_THAT(runCli({u"check"_s, output()}).output, HasSubstr("[no-set]"));
    const Outcome outcome = runCli({u"check"_s, output(), u"--recursive"_s});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output,
              folder +
                  "A\n  note: A_normal.png: Green points down in the generated normal map, so export it "
                  "with Flip Green if light seems to come from below (other generated sets here may be "
                  "alike). [normal-green-down]\n" +
                  folder + "B\n2 folders checked: 0 errors, 0 warnings, 1 note\n");
}

}  // namespace
