#include "cli/batch/texture_loading.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"
#include "engine/base/texture_processor_error.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

namespace quarlin {

using namespace Qt::StringLiterals;

TextureAsset openTexture(const TextureProcessor& processor, const MaterialInput& input) {
    const QUrl file = localFile(input.path);
    return failingAs(u"Load"_s, [&] {
        return input.channel ? processor.openAsset(file, *input.channel) : processor.openAsset(file);
    });
}

TextureMap openTextures(const TextureProcessor& processor, const MaterialInputPaths& inputs, bool keepsData) {
    TextureMap textures;
    for (const auto& [slot, input] : inputs) {
        try {
            // The samples of a channel always stay as they are.
            const bool isData = keepsData && slot != TextureSlotKind::baseColor && !input.channel;
            const QUrl file = localFile(input.path);
            textures.emplace(slot, isData
                                       ? failingAs(u"Load"_s, [&] { return processor.openDataAsset(file); })
                                       : openTexture(processor, input));
        } catch (const CommandFailure&) {
            // A texture before this one may be damaged further down.
            failingAs(u"Load"_s, [&] {
                for (const auto& [before, texture] : textures) {
                    processor.expectReadable(texture);
                }
            });
            throw;
        }
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

ExportResult exportOpened(const std::function<ExportResult()>& work) {
    return failingAs(u"Export"_s, [&] {
        try {
            return work();
        } catch (const TextureProcessorError& error) {
            if (error.kind() == TextureProcessorError::Case::cannotReadImage) {
                throw CommandFailure(u"Load"_s, error);
            }
            throw;
        }
    });
}

}  // namespace quarlin
