// Operations of the engine that are parts of an export: packing, loading, previews.

#include "engine/material/orm_packing.h"
#include "engine/reference/height_field.h"
#include "engine/texture_processor.h"
#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"
#include "measured.h"
#include "model/conversion_settings.h"
#include "model/normal_generator_settings.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"
#include "photograph.h"

#include <QTemporaryDir>

namespace quarlin::bench {

using namespace Qt::StringLiterals;

namespace {

/// The photograph as two files, which are deleted at the end.
struct PhotographFiles {
    QTemporaryDir folder;
    QUrl png = QUrl::fromLocalFile(folder.filePath(u"photograph.png"_s));
    QUrl jpeg = QUrl::fromLocalFile(folder.filePath(u"photograph.jpg"_s));

    PhotographFiles() {
        const PixelImage& image = largePhotograph();
        TextureProcessor().writePNG(image, png);
        constexpr int quality = 90;
        const QImage view(image.pixels.data(), static_cast<int>(image.width), static_cast<int>(image.height),
                          pixelFormat);
        view.save(jpeg.toLocalFile(), "JPEG", quality);
    }
};

const PhotographFiles& files() {
    static const PhotographFiles made;
    return made;
}

void packChannels(benchmark::State& state, const PixelImage& image) {
    const OrmChannel texture{.pixels = image.pixels.data(), .fallback = 0, .inverted = false};
    const OrmChannels channels{texture, texture, texture};
    PixelBuffer output(image.pixels.size());
    for (auto _ : state) {
        packOrm(channels, 0, image.width * image.height, output.data());
        benchmark::ClobberMemory();
    }
    countBytes(state, output.size());
}

void load(benchmark::State& state, const QUrl PhotographFiles::*file) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(TextureProcessor().loadAsset(files().*file));
    }
    countBytes(state, largePhotograph().pixels.size());
}

enum class Textures { loaded, changedSince };

/// A texture that keeps its pixels, or one whose file has to be decoded again.
TextureAsset asset(const QUrl& file, Textures textures) {
    TextureAsset made = TextureProcessor().loadAsset(file);
    if (textures == Textures::changedSince) {
        made.decodedFrom.reset();
    }
    return made;
}

void previewMaterial(benchmark::State& state, const QUrl PhotographFiles::*file, Textures textures) {
    TextureMap map;
    for (const TextureSlotKind slot : allCases<TextureSlotKind>()) {
        map.emplace(slot, asset(files().*file, textures));
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(TextureProcessor().buildPreviews(map, ConversionSettings()));
    }
}

void previewMaps(benchmark::State& state, const QUrl PhotographFiles::*file, Textures textures) {
    const TextureAsset source = asset(files().*file, textures);
    for (auto _ : state) {
        benchmark::DoNotOptimize(TextureProcessor().buildNormalPreviews(source, NormalGeneratorSettings()));
    }
}

[[maybe_unused]] const int registered = [] {
    measure("operation/pack_orm/colored",
            [](benchmark::State& state) { packChannels(state, largePhotograph()); });
    measure("operation/pack_orm/gray", [](benchmark::State& state) {
        const PixelImage& image = largePhotograph();
        const reference::HeightField heights =
            reference::smoothedHeightValues(image, NormalGeneratorSettings());
        packChannels(state, reference::heightImage(heights, image.width, image.height));
    });
    const auto add = [](const std::string& name, const QUrl PhotographFiles::*file) {
        measure("operation/load_asset/" + name, [=](benchmark::State& state) { load(state, file); });
        for (const Textures textures : {Textures::loaded, Textures::changedSince}) {
            const std::string kind = name + (textures == Textures::loaded ? "/loaded" : "/changed_since");
            measure("operation/build_previews/" + kind,
                    [=](benchmark::State& state) { previewMaterial(state, file, textures); });
            measure("operation/build_normal_previews/" + kind,
                    [=](benchmark::State& state) { previewMaps(state, file, textures); });
        }
    };
    add("png", &PhotographFiles::png);
    add("jpeg", &PhotographFiles::jpeg);
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench
