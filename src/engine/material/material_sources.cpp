#include "engine/material/material_sources.h"

namespace quarlin {

MaterialSources::MaterialSources(const TextureMap& textures) {
    for (const auto& [slot, texture] : textures) {
        m_sources.emplace(slot, texture);
        if (texture.channel) {
            m_channels.insert(slot);
        }
        m_areUnloaded = m_areUnloaded || !texture.isLoaded();
    }
}

std::unique_ptr<RowReader> MaterialSources::open(TextureSlotKind slot, PixelSize size) const {
    const auto source = m_sources.find(slot);
    return source != m_sources.end() ? source->second.open(size) : nullptr;
}

QImage MaterialSources::loadedImage(TextureSlotKind slot, PixelSize size) const {
    const auto source = m_sources.find(slot);
    if (source == m_sources.end()) {
        return {};
    }
    const QImage image = source->second.image();
    return image.width() == size.width && image.height() == size.height ? image : QImage();
}

void MaterialSources::expectReadable() const {
    for (const auto& [slot, source] : m_sources) {
        source.expectReadable();
    }
}

}  // namespace quarlin
