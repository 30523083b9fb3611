// Operations called from several threads at once do not disturb each other.

#include "engine/texture_processor.h"
#include "imaging/pixels/pixel_image.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/normal_generator_settings.h"
#include "model/output_resolution.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"
#include "picture.h"
#include "png_files.h"
#include "rendering.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

constexpr std::size_t threadCount = 4;

/// Runs `work(0)` to `work(threadCount - 1)` at the same time.
template <typename Work>
void atOnce(Work&& work) {
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index < threadCount; ++index) {
        threads.emplace_back([&work, index] { work(index); });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

class Concurrency : public testing::Test {
protected:
    Concurrency() {
        for (std::size_t index = 0; index < threadCount; ++index) {
            writePng(file(index), noisePicture(60 + static_cast<int>(index) * 7, 50, index, true));
        }
    }
    QUrl file(std::size_t index) const { return folder.url(u"input%1.png"_s.arg(index)); }

    const TextureProcessor processor{};
    const TemporaryFolder folder;
};

TEST_F(Concurrency, RenderingGivesWhatItGivesAlone) {
    std::array<PixelImage, threadCount> images;
    atOnce([&](std::size_t index) { images[index] = processor.renderImage(file(index), 128, 96); });
    for (std::size_t index = 0; index < threadCount; ++index) {
        EXPECT_EQ(images[index], processor.renderImage(file(index), 128, 96));
    }
}

TEST_F(Concurrency, LargeFilesOfWhichEachTakesTwoThreadsComeBackWhole) {
    std::array<Picture, threadCount> pictures;
    for (std::size_t index = 0; index < threadCount; ++index) {
        pictures[index] = noisePicture(400, 400, index);
        writePng(file(index), pictures[index]);
    }
    std::array<PixelImage, threadCount> images;
    atOnce([&](std::size_t index) { images[index] = processor.renderImage(file(index), 400, 400); });
    for (std::size_t index = 0; index < threadCount; ++index) {
        EXPECT_TRUE(images[index] == pixelImage(pictures[index]));
    }
}

TEST_F(Concurrency, RenderingOneFileManyTimesGivesOneResult) {
    std::array<PixelImage, threadCount> images;
    const TextureAsset asset = processor.loadAsset(file(0));
    atOnce([&](std::size_t index) { images[index] = processor.renderImage(asset, 200, 200); });
    for (const PixelImage& image : images) {
        EXPECT_EQ(image, images[0]);
    }
}

TEST_F(Concurrency, GeneratedSetsAreWhatTheyAreAlone) {
    NormalGeneratorSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    const auto exportTo = [&](std::size_t index, const QString& parent) {
        return processor.exportGeneratedNormalSet(processor.loadAsset(file(index)), settings,
                                                  folder.url(parent));
    };
    atOnce([&](std::size_t index) { exportTo(index, u"together%1"_s.arg(index)); });
    for (std::size_t index = 0; index < threadCount; ++index) {
        for (const QString& name : exportTo(index, u"alone%1"_s.arg(index)).files) {
            const QString path = u"%1%2/VOREK_Normal/%3"_s;
            EXPECT_EQ(readFile(folder.url(path.arg(u"together"_s).arg(index).arg(name))),
                      readFile(folder.url(path.arg(u"alone"_s).arg(index).arg(name))))
                << name.toStdString();
        }
    }
}

TEST_F(Concurrency, MaterialSetsAreWhatTheyAreAlone) {
    ConversionSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    TextureMap textures;
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        textures.emplace(slot, processor.loadAsset(file(static_cast<std::size_t>(slot) % threadCount)));
    }
    atOnce([&](std::size_t index) {
        processor.exportMaterialSet(textures, settings, folder.url(u"set%1"_s.arg(index)));
    });
    const QString path = u"set%1/VOREK_PBR_Material/%2"_s;
    for (const QString& name : folder.names(u"set0/VOREK_PBR_Material"_s)) {
        for (std::size_t index = 1; index < threadCount; ++index) {
            EXPECT_EQ(readFile(folder.url(path.arg(index).arg(name))),
                      readFile(folder.url(path.arg(0).arg(name))))
                << name.toStdString();
        }
    }
}

}  // namespace
