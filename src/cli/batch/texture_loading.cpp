#include "cli/batch/texture_loading.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"

#include <future>

namespace quarlin {

using namespace Qt::StringLiterals;

TextureAsset loadTexture(const TextureProcessor& processor, const QString& path) {
    return failingAs(u"Load"_s, [&] { return processor.loadAsset(localFile(path)); });
}

TextureMap loadTextures(const TextureProcessor& processor, const std::map<TextureSlotKind, QString>& paths) {
    std::map<TextureSlotKind, std::future<TextureAsset>> loading;
    for (const auto& [slot, path] : paths) {
        if (!path.isEmpty()) {
            loading[slot] = std::async(std::launch::async,
                                       [&processor, file = path] { return loadTexture(processor, file); });
        }
    }
    // If a slot fails, destroying `loading` waits for the slots after it.
    TextureMap textures;
    for (auto& [slot, texture] : loading) {
        textures.emplace(slot, texture.get());
    }
    return textures;
}

}  // namespace quarlin
