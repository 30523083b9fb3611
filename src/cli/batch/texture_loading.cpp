#include "cli/batch/texture_loading.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"
#include "imaging/base/parallel.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <optional>
#include <utility>
#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

TextureAsset loadTexture(const TextureProcessor& processor, const MaterialInput& input) {
    const QUrl file = localFile(input.path);
    return failingAs(u"Load"_s, [&] {
        return input.channel ? processor.loadAsset(file, *input.channel) : processor.loadAsset(file);
    });
}

TextureMap loadTextures(const TextureProcessor& processor, const MaterialInputPaths& inputs) {
    const std::vector<std::pair<TextureSlotKind, MaterialInput>> files(inputs.begin(), inputs.end());
    std::vector<std::optional<TextureAsset>> loaded(files.size());
    forEachInParallel(static_cast<std::int64_t>(files.size()), [&](std::int64_t index) {
        const auto place = static_cast<std::size_t>(index);
        loaded[place] = loadTexture(processor, files[place].second);
    });
    TextureMap textures;
    for (std::size_t index = 0; index < files.size(); ++index) {
        textures.emplace(files[index].first, *std::move(loaded[index]));
    }
    return textures;
}

}  // namespace quarlin
