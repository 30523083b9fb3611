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

TextureMap openTextures(const TextureProcessor& processor, const MaterialInputPaths& inputs) {
    TextureMap textures;
    for (const auto& [slot, input] : inputs) {
        try {
            textures.emplace(slot, openTexture(processor, input));
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
