#include "engine/material/material_inputs.h"

#include "engine/base/channels.h"
#include "engine/base/rendered_texture.h"
#include "engine/base/texture_processor_error.h"
#include "engine/material/normal_conditioning.h"
#include "engine/material/orm_packing.h"
#include "imaging/base/parallel.h"
#include "imaging/pixels/pixel_image.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <algorithm>

namespace quarlin {

MaterialInputs::MaterialInputs(const TextureMap& textures, const std::vector<TextureSlotKind>& slots,
                               PixelSize size)
    : m_size(size) {
    std::vector<const TextureAsset*> assets;
    std::vector<Outcome<QImage>*> places;
    for (const TextureSlotKind slot : slots) {
        if (const auto texture = textures.find(slot); texture != textures.end()) {
            assets.push_back(&texture->second);
            places.push_back(&m_rendered[slot]);
            if (texture->second.channel) {
                m_channels.insert(slot);
            }
        }
    }
    forEachInParallel(static_cast<std::int64_t>(assets.size()), [&](std::int64_t index) {
        const auto place = static_cast<std::size_t>(index);
        *places[place] =
            Outcome<QImage>::of([&] { return renderTexture(*assets[place], size.width, size.height); });
    });
}

const QImage* MaterialInputs::texture(TextureSlotKind slot) const {
    const auto rendered = m_rendered.find(slot);
    return rendered != m_rendered.end() ? &rendered->second.value() : nullptr;
}

RowSource ormRows(const MaterialInputs& inputs, const ConversionSettings& settings) {
    const auto channel = [&](TextureSlotKind slot, double defaultValue, bool inverted) {
        const QImage* texture = inputs.texture(slot);
        return OrmChannel{.pixels = texture != nullptr ? texture->constBits() : nullptr,
                          .isChannel = inputs.isChannel(slot),
                          .fallback = byteFromUnit(defaultValue),
                          .inverted = inverted};
    };
    // A braced list is evaluated from left to right. That is the order in which failures are reported.
    const OrmChannels channels{
        channel(TextureSlotKind::occlusion, settings.defaultOcclusion, false),
        channel(TextureSlotKind::roughness, settings.defaultRoughness, settings.roughnessInputIsGloss),
        channel(TextureSlotKind::metallic, settings.defaultMetallic, false)};
    return [channels, width = inputs.size().width](RowRange rows, PixelBuffer& scratch) {
        scratch.resize(static_cast<std::size_t>(rows.count * width * bytesPerPixel));
        packOrm(channels, rows.first * width, rows.count * width, scratch.data());
        return scratch.data();
    };
}

RowSource conditionedNormalRows(const QImage& normal, const ConversionSettings& settings) {
    return [view = ImageView(normal), flip = settings.flipNormalGreen](RowRange rows, PixelBuffer& scratch) {
        PixelImage strip{view.width, rows.count, std::move(scratch)};
        strip.pixels.assign(view.row(rows.first), view.row(rows.end()));
        normalizeAlpha(strip);
        if (flip) {
            flipGreenChannel(strip);
        }
        scratch = std::move(strip.pixels);
        return scratch.data();
    };
}

RowSource imageRows(MaterialImage image, const MaterialInputs& inputs, const ConversionSettings& settings) {
    switch (image) {
        case MaterialImage::baseColor:
            return rowsOf(ImageView(*inputs.texture(TextureSlotKind::baseColor)));
        case MaterialImage::normal:
            return conditionedNormalRows(*inputs.texture(TextureSlotKind::normal), settings);
        case MaterialImage::orm:
            break;
    }
    return ormRows(inputs, settings);
}

QImage imageOf(PixelSize size, const RowSource& rows) {
    QImage image(static_cast<int>(size.width), static_cast<int>(size.height), pixelFormat);
    if (image.isNull()) {
        throw TextureProcessorError::cannotCreateBitmap();
    }
    std::uint8_t* const pixels = image.bits();
    const std::int64_t bytesPerRow = size.width * bytesPerPixel;
    const RowStrips strips(size.height, 64);
    forEachInParallel(strips.count(), [&](std::int64_t strip) {
        const RowRange range = strips[strip];
        PixelBuffer scratch;
        const std::uint8_t* made = rows(range, scratch);
        std::copy(made, made + range.count * bytesPerRow, pixels + range.first * bytesPerRow);
    });
    return image;
}

}  // namespace quarlin
