// Exported sets are read by other programs.

#include "cli_test.h"
#include "set_files.h"

#include <QDir>

#include <gmock/gmock.h>
#include <tiny_gltf.h>

#include <string>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::tests;
using testing::HasSubstr;

namespace {

/// The name of an exported set.
struct SetName {
    const char* name;
    const char* typed;
};

class ExportedSet : public CliTest, public testing::WithParamInterface<SetName> {
protected:
    const QString source = writeImage(u"in.png"_s, patternedImage(64, 64, 1));
    const QString name = QString::fromUtf8(GetParam().typed);

    QString exported(const QString& command, const QStringList& inputs) const {
        const Outcome outcome = runCli(
            QStringList{command} + inputs +
            QStringList{u"--name"_s, name, u"--size"_s, u"512"_s, u"--output"_s, output() + u'/' + command});
        EXPECT_EQ(outcome.status, 0) << outcome.errors;
        return output() + u'/' + command + u'/' + name;
    }
    QString materialSet() const {
        return exported(u"material"_s,
                        {u"--base-color"_s, source, u"--normal"_s, source, u"--occlusion"_s, source});
    }
    QString materialSetWithoutNormal() const { return exported(u"material"_s, {u"--base-color"_s, source}); }
    QString generatedSet() const { return exported(u"maps"_s, {u"--source"_s, source}); }
    QString documentIn(const QString& folder) const { return folder + u'/' + name + u".gltf"_s; }
};

/// Runs the validator, which lists every issue and succeeds only if none of them is an error or a warning.
void expectValid(const QString& document) {
    const Outcome outcome = run(QStringLiteral(NODE_PATH), {QStringLiteral(VALIDATE_SCRIPT), document});
    EXPECT_EQ(outcome.status, 0) << outcome.output << outcome.errors;
}

TEST_P(ExportedSet, PassesTheGltfValidator) {
    expectValid(documentIn(materialSet()));
    expectValid(documentIn(generatedSet()));
}

TEST_P(ExportedSet, PassesTheGltfValidatorWithoutNormalMap) {
    expectValid(documentIn(materialSetWithoutNormal()));
}

TEST_P(ExportedSet, FailsTheGltfValidatorOnceAnImageIsGone) {
    const QString folder = materialSet();
    ASSERT_TRUE(QFile::remove(folder + u'/' + name + u"_ORM.png"_s));
    const Outcome outcome =
        run(QStringLiteral(NODE_PATH), {QStringLiteral(VALIDATE_SCRIPT), documentIn(folder)});
    EXPECT_EQ(outcome.status, 1) << outcome.output;
}

tinygltf::Model expectLoaded(const QString& document) {
    tinygltf::TinyGLTF loader;
    tinygltf::Model model;
    std::string errors;
    std::string warnings;
    EXPECT_TRUE(loader.LoadASCIIFromFile(&model, &errors, &warnings, document.toStdString()));
    EXPECT_EQ(errors, "");
    EXPECT_EQ(warnings, "");
    return model;
}

TEST_P(ExportedSet, LoadsWithItsImages) {
    for (const QString& folder : {materialSet(), generatedSet()}) {
        const tinygltf::Model model = expectLoaded(documentIn(folder));
        ASSERT_EQ(model.materials.size(), 1U);
        const tinygltf::Material& material = model.materials.front();
        EXPECT_EQ(material.name, name.toStdString());
        EXPECT_EQ(material.pbrMetallicRoughness.baseColorTexture.index, 0);
        EXPECT_EQ(material.pbrMetallicRoughness.metallicRoughnessTexture.index, 1);
        EXPECT_EQ(material.occlusionTexture.index, 1);
        EXPECT_EQ(material.normalTexture.index, 2);
        ASSERT_EQ(model.images.size(), 3U);
        for (const tinygltf::Image& image : model.images) {
            EXPECT_EQ(image.width, 512);
            EXPECT_EQ(image.height, 512);
        }
    }
}

TEST_P(ExportedSet, ContainsPngFilesThatOtherProgramsAccept) {
    std::size_t count = 0;
    for (const QString& folder : {materialSet(), generatedSet()}) {
        for (const QString& file : QDir(folder).entryList({u"*.png"_s}, QDir::Files)) {
            const QString png = folder + u'/' + file;
            const Outcome checked = run(QStringLiteral(PNGCHECK_PATH), {u"-v"_s, png});
            EXPECT_EQ(checked.status, 0) << checked.output;
            EXPECT_THAT(checked.output, HasSubstr("512 x 512 image, 32-bit RGB+alpha, non-interlaced"));
            EXPECT_THAT(checked.output, HasSubstr("chunk sRGB"));
            const Outcome identified =
                run(QStringLiteral(IDENTIFY_PATH),
                    {u"-regard-warnings"_s, u"-format"_s, u"%m %w %h %z %[colorspace]"_s, png});
            EXPECT_EQ(identified.status, 0) << identified.errors;
            EXPECT_EQ(identified.output, "PNG 512 512 8 sRGB");
            EXPECT_EQ(identified.errors, "");
            ++count;
        }
    }
    EXPECT_EQ(count,
              imagesOf(fixtures::materialFiles()).size() + imagesOf(fixtures::generatedFiles()).size());
}

INSTANTIATE_TEST_SUITE_P(Names, ExportedSet,
                         testing::Values(SetName{"Ascii", "Brick-Wall_2"}, SetName{"NonAscii", "Größe_壁"}),
                         [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
