// window_session BASE NORMAL OCCLUSION ROUGHNESS METALLIC FOLDER: what the window does from the first texture
// to the end of an export, without the window: loads the textures, builds the previews, exports the set.
// Prints the seconds of each.

#include "engine/texture_processor.h"
#include "model/conversion_settings.h"
#include "model/export_result.h"
#include "model/previews.h"
#include "model/texture_asset.h"
#include "model/texture_slot_kind.h"

#include <QUrl>

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <span>

using namespace quarlin;

namespace {

/// The time from one call of `seconds` to the next.
class Stopwatch {
public:
    double seconds() {
        const auto now = std::chrono::steady_clock::now();
        const std::chrono::duration<double> elapsed = now - begin_;
        begin_ = now;
        return elapsed.count();
    }

private:
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

}  // namespace

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    constexpr std::array slots = allCases<TextureSlotKind>();
    if (arguments.size() != slots.size() + 2) {
        std::fputs("usage: window_session BASE NORMAL OCCLUSION ROUGHNESS METALLIC FOLDER\n", stderr);
        return 2;
    }
    const TextureProcessor processor;
    Stopwatch stopwatch;
    TextureMap textures;
    for (std::size_t index = 0; index < slots.size(); ++index) {
        const QUrl file = QUrl::fromLocalFile(QString::fromLocal8Bit(arguments[index + 1]));
        textures.emplace(slots[index], processor.loadAsset(file));
    }
    const double load = stopwatch.seconds();
    ConversionSettings settings;
    settings.outputResolution = OutputResolution::matchBase;
    const OutputPreviews previews = processor.buildPreviews(textures, settings);
    const double preview = stopwatch.seconds();
    processor.exportMaterialSet(textures, settings,
                                QUrl::fromLocalFile(QString::fromLocal8Bit(arguments.back()) + u'/'));
    std::printf("load %.3f, previews %.3f, export %.3f\n", load, preview, stopwatch.seconds());
    return previews.empty() ? 1 : 0;
}
