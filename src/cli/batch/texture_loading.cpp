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

namespace {

TextureAsset loadData(const TextureProcessor& processor, const QString& path) {
    return failingAs(u"Load"_s, [&] { return processor.loadDataAsset(localFile(path)); });
}

}  // namespace

TextureMap loadTextures(const TextureProcessor& processor, const std::map<TextureSlotKind, QString>& paths,
                        bool keepsData) {
    std::vector<std::pair<TextureSlotKind, QString>> files;
    std::copy_if(paths.begin(), paths.end(), std::back_inserter(files),
                 [](const auto& path) { return !path.second.isEmpty(); });
    std::vector<std::optional<TextureAsset>> loaded(files.size());
    forEachInParallel(static_cast<std::int64_t>(files.size()), [&](std::int64_t index) {
        const auto place = static_cast<std::size_t>(index);
        const auto& [slot, path] = files[place];
        loaded[place] = keepsData && slot != TextureSlotKind::baseColor ? loadData(processor, path)
                                                                        : loadTexture(processor, path);
    });
    TextureMap textures;
    for (std::size_t index = 0; index < files.size(); ++index) {
        textures.emplace(files[index].first, *std::move(loaded[index]));
    }
    return textures;
}

std::vector<SetNote> conversionNotes(const TextureMap& textures) {
    std::vector<SetNote> notes;
    for (const auto& [slot, texture] : textures) {
        if (slot != TextureSlotKind::baseColor && !texture.convertedFrom.isEmpty()) {
            notes.push_back({u"converted"_s,
                             u"the values of "_s + texture.fileName + u" ("_s + title(slot) +
                                 u") were converted from \""_s + texture.convertedFrom +
                                 u"\" to sRGB; --raw-data keeps them"_s,
                             rawValue(slot), texture.convertedFrom});
        }
    }
    return notes;
}

}  // namespace quarlin
