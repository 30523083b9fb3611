#include "engine/texture_processor.h"
#include "material_fixture.h"
#include "model/material_set.h"
#include "progress_reports.h"

#include <QImage>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class WholeMaterialImages : public MaterialJob {
protected:
    QImage made(MaterialImage image, const RowProgress& progress = goOn) const {
        return processor.makeMaterialImage(image, textures, settings, progress);
    }
};

TEST_F(WholeMaterialImages, AreWhatTheExportWrites) {
    load(TextureSlotKind::baseColor, noisePicture(600, 300, 1, true));
    load(TextureSlotKind::normal, noisePicture(31, 77, 2, true));
    load(TextureSlotKind::roughness, noisePicture(90, 10, 4));
    settings.flipNormalGreen = true;
    settings.defaultMetallic = 0.4;
    for (const OutputResolution resolution : {OutputResolution::matchBase, OutputResolution::px1024}) {
        settings.outputResolution = resolution;
        exported();
        for (const auto& [image, name] : {std::pair{MaterialImage::baseColor, u"Brick_BaseColor.png"_s},
                                          {MaterialImage::orm, u"Brick_ORM.png"_s},
                                          {MaterialImage::normal, u"Brick_Normal.png"_s}}) {
            const auto written = premultiplied(readPng(output(name)));
            EXPECT_TRUE(sameBytes(written, bytesOf(made(image)))) << name.toStdString();
        }
    }
}

TEST_F(WholeMaterialImages, ShareThePixelsOfALoadedBaseColor) {
    load(TextureSlotKind::baseColor, smoothPicture(30, 20));
    EXPECT_EQ(made(MaterialImage::baseColor).constBits(),
              textures.at(TextureSlotKind::baseColor).preview.constBits());
}

TEST_F(WholeMaterialImages, AreNullWithoutTheirTexture) {
    EXPECT_TRUE(made(MaterialImage::orm).isNull());
    load(TextureSlotKind::occlusion, smoothPicture(30, 20));
    EXPECT_TRUE(made(MaterialImage::baseColor).isNull());
    EXPECT_TRUE(made(MaterialImage::normal).isNull());
    EXPECT_EQ(made(MaterialImage::orm).size(), QSize(30, 20));
}

TEST_F(WholeMaterialImages, ReportTheRowsThatAreDoneAndStopWhenTold) {
    load(TextureSlotKind::occlusion, smoothPicture(10, 1000));
    Reports all;
    EXPECT_FALSE(made(MaterialImage::orm, all.progress()).isNull());
    EXPECT_GT(all.rows.size(), 2U);
    EXPECT_TRUE(std::is_sorted(all.rows.begin(), all.rows.end()));
    EXPECT_EQ(all.rows.back(), 1000);
    Reports two{.last = 2, .rows = {}};
    EXPECT_TRUE(made(MaterialImage::orm, two.progress()).isNull());
    EXPECT_EQ(two.rows.size(), 2U);
}

TEST_F(WholeMaterialImages, ThrowWhatTheirTexturesThrow) {
    loadMissing(TextureSlotKind::baseColor);
    EXPECT_EQ(errorOf([&] { made(MaterialImage::baseColor); }),
              TextureProcessorError::cannotReadImage(textures.at(TextureSlotKind::baseColor).url));
}

}  // namespace
