#include "engine/texture_processor.h"
#include "model/export_result.h"
#include "model/generated_set.h"
#include "model/normal_generator_settings.h"
#include "model/set_file.h"
#include "model/texture_asset.h"
#include "picture.h"
#include "png_files.h"
#include "progress_reports.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <QImage>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class WholeGeneratedMaps : public testing::Test {
protected:
    WholeGeneratedMaps() { settings.outputResolution = OutputResolution::matchBase; }

    TextureAsset load(const Picture& picture) const {
        const QUrl file = folder.url(u"source.png"_s);
        writePng(file, picture);
        return processor.loadAsset(file);
    }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
    NormalGeneratorSettings settings;
};

TEST_F(WholeGeneratedMaps, AreWhatTheExportWrites) {
    const TextureAsset source = load(noisePicture(600, 300, 1, true));
    settings.materialName = u"Brick"_s;
    settings.smoothing = 2;
    settings.flipGreen = true;
    for (const OutputResolution resolution : {OutputResolution::matchBase, OutputResolution::px1024}) {
        settings.outputResolution = resolution;
        processor.exportGeneratedNormalSet(source, settings, folder.url());
        for (const GeneratedFile file : allCases<GeneratedFile>()) {
            if (const auto map = tableRow(file).map) {
                const QString name = fileName(u"Brick"_s, file);
                const auto written = premultiplied(readPng(folder.url(u"Brick/"_s + name)));
                const QImage made = processor.makeGeneratedMap(*map, source, settings, goOn);
                EXPECT_TRUE(sameBytes(written, bytesOf(made))) << name.toStdString();
            }
        }
    }
}

TEST_F(WholeGeneratedMaps, ReportTheRowsThatAreDoneAndStopWhenTold) {
    const TextureAsset source = load(smoothPicture(10, 1000));
    Reports all;
    EXPECT_FALSE(processor.makeGeneratedMap(GeneratedMap::normal, source, settings, all.progress()).isNull());
    EXPECT_GT(all.rows.size(), 2U);
    EXPECT_TRUE(std::is_sorted(all.rows.begin(), all.rows.end()));
    EXPECT_EQ(all.rows.back(), 1000);
    Reports one{.last = 1, .rows = {}};
    EXPECT_TRUE(processor.makeGeneratedMap(GeneratedMap::normal, source, settings, one.progress()).isNull());
    EXPECT_LT(one.rows.size(), all.rows.size());
}

}  // namespace
