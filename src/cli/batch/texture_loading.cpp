#include "cli/batch/texture_loading.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"
#include "imaging/base/parallel.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

TextureAsset loadTexture(const TextureProcessor& processor, const QString& path) {
    return failingAs(u"Load"_s, [&] { return processor.loadAsset(localFile(path)); });
}

TextureMap loadTextures(const TextureProcessor& processor, const std::map<TextureSlotKind, QString>& paths) {
    std::vector<std::pair<TextureSlotKind, QString>> files;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(files),
                 [](const auto& path) { return !path.second.isEmpty(); });
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
