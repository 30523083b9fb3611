// Decodes the same PNG files with our decoder and with libvips, and a JPEG file.

#include "imaging/decode/jpeg_decoder.h"
#include "imaging/decode/plain_png_decoder.h"
#include "imaging/decode/vips_decoder.h"
#include "libpng_writer.h"
#include "measured.h"
#include "photograph.h"

#include "imaging/pixels/image_view.h"
#include "imaging/pixels/pixel_image.h"

#include <QBuffer>

#include <functional>
#include <map>

namespace quarlin::bench {

namespace {

using Decode = std::function<QImage(const QByteArray& file)>;

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

void decode(benchmark::State& state, const Decode& decoder, const QByteArray& file) {
    for (auto _ : state) {
        if (decoder(file).isNull()) {
            state.SkipWithError("the file was rejected");
            break;
        }
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
    decode(state, decodeJpeg, file);
    countBytes(state, largePhotograph().pixels.size());
}

[[maybe_unused]] const int registered = [] {
    for (const int samples : {1, 3, 4}) {
        const auto add = [&](const std::string& name, const Decode& decoder) {
            measure("decode/" + name + "/samples_" + std::to_string(samples),
                    [=](benchmark::State& state) { decode(state, decoder, pngFile(samples)); });
        };
        add("plain_png", decodePlainPng);
        add("libvips_png", decodeWithVips);
    }
    measure("decode/jpeg", decodeLargeJpeg);
    return 0;
}();

}  // namespace

}  // namespace quarlin::bench
