#include "engine/material/material_rows.h"

#include "engine/base/channels.h"
#include "engine/material/normal_conditioning.h"
#include "engine/material/orm_rows.h"
#include "model/texture_slot_kind.h"

#include <utility>

namespace quarlin {

namespace {

/// The rows of a normal map, opaque and flipped as the settings say.
class NormalRows final : public RowReader {
public:
    NormalRows(std::unique_ptr<RowReader> normal, bool flip)
        : RowReader(normal->width(), normal->height()), m_normal(std::move(normal)), m_flip(flip) {}

private:
    void readRows(std::int64_t count, std::uint8_t* rows) override {
        m_normal->read(count, rows);
        const std::span pixels(rows, static_cast<std::size_t>(count * bytesPerRow()));
        normalizeAlpha(pixels);
        if (m_flip) {
            flipGreenChannel(pixels);
        }
    }

    std::unique_ptr<RowReader> m_normal;
    bool m_flip;
};

std::unique_ptr<RowReader> openOrm(const MaterialSources& sources, const ConversionSettings& settings,
                                   PixelSize size) {
    const auto input = [&](TextureSlotKind slot, double defaultValue, bool inverted) {
        return OrmInput{.open = [&sources, slot, size] { return sources.open(slot, size); },
                        .fallback = byteFromUnit(defaultValue),
                        .inverted = inverted};
    };
    return std::make_unique<OrmRows>(
        OrmInputs{
            input(TextureSlotKind::occlusion, settings.defaultOcclusion, false),
            input(TextureSlotKind::roughness, settings.defaultRoughness, settings.roughnessInputIsGloss),
            input(TextureSlotKind::metallic, settings.defaultMetallic, false)},
        size);
}

}  // namespace

std::unique_ptr<RowReader> openMaterialImage(MaterialImage image, const MaterialSources& sources,
                                             const ConversionSettings& settings, PixelSize size) {
    switch (image) {
        case MaterialImage::baseColor:
            return sources.open(TextureSlotKind::baseColor, size);
        case MaterialImage::normal:
            if (auto normal = sources.open(TextureSlotKind::normal, size)) {
                return std::make_unique<NormalRows>(std::move(normal), settings.flipNormalGreen);
            }
            return nullptr;
        case MaterialImage::orm:
            break;
    }
    return openOrm(sources, settings, size);
}

}  // namespace quarlin
