#include "cli/batch/texture_loading.h"

#include "cli/base/local_file.h"
#include "cli/batch/command_failure.h"
#include "engine/base/texture_processor_error.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

namespace quarlin {

using namespace Qt::StringLiterals;

TextureAsset openTexture(const TextureProcessor& processor, const QString& path) {
    return failingAs(u"Load"_s, [&] { return processor.openAsset(localFile(path)); });
}

TextureMap openTextures(const TextureProcessor& processor, const std::map<TextureSlotKind, QString>& paths) {
    TextureMap textures;
    for (const auto& [slot, path] : paths) {
        if (path.isEmpty()) {
            continue;
        }
        try {
            textures.emplace(slot, openTexture(processor, path));
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
