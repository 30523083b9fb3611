// Decodes the same PNG files with our decoder and with libvips, and a JPEG file.

#include "imaging/decode/decode_error.h"
#include "imaging/decode/formats/jpeg_reader.h"
#include "imaging/decode/formats/plain_png_reader.h"
#include "imaging/decode/formats/png_reader.h"
#include "imaging/decode/image_decoder.h"
#include "libpng_writer.h"
#include "measured.h"
#include "photograph.h"

#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"

#include <QBuffer>

#include <map>
#include <memory>

namespace quarlin::bench {

namespace {

using Open = std::unique_ptr<RowReader> (*)(const QByteArray& file);

const PixelImage& picture() {
    static const PixelImage image = photograph(2048);
    return image;
}

const QByteArray& pngFile(int samples) {
    static std::map<int, QByteArray> files;
    QByteArray& file = files[samples];
    if (file.isEmpty()) {
        file = writtenByLibpng(picture(), samples);
    }
    return file;
}

void decode(benchmark::State& state, Open open, const QByteArray& file) {
    try {
        for (auto _ : state) {
            benchmark::DoNotOptimize(readImage(*open(file)).constBits());
        }
    } catch (const DecodeError& error) {
        state.SkipWithError(error.what());
    }
    countBytes(state, picture().pixels.size());
}

void decodeLargeJpeg(benchmark::State& state) {
    static const QByteArray file = [] {
        const PixelImage& image = largePhotograph();
        const QImage view(image.pixels.data(), static_cast<int>(image.width), static_cast<int>(image.height),
                          pixelFormat);
        QBuffer buffer;
        constexpr int quality = 90;
        return view.save(&buffer, "JPEG", quality) ? buffer.data() : QByteArray();
    }();
    decode(
        state,
        [](const QByteArray& bytes) { return openJpeg(bytesInMemory(bytes), ColorHandling::convert).rows; },
        file);
    countBytes(state, largePhotograph().pixels.size());
}

[[maybe_unused]] const int registered = [] {
    for (const int samples : {1, 3, 4}) {
        const auto add = [&](const std::string& name, Open open) {
            measure("decode/" + name + "/samples_" + std::to_string(samples),
                    [=](benchmark::State& state) { decode(state, open, pngFile(samples)); });
        };
        add("plain_png", [](const QByteArray& bytes) { return openPlainPng(bytesInMemory(bytes)); });
        add("libvips_png", [](const QByteArray& bytes) { return openAnyPng(bytes).rows; });
    }
    measure("decode/jpeg", decodeLargeJpeg);
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench
