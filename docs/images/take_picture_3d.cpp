// take_picture_3d SAMPLES MODULE FOLDER: loads the sample textures and saves what the 3D view then looks like
// as view3d.png in FOLDER. MODULE is the plugin with the 3D view. It needs a screen with OpenGL.

#include "stores/material_store.h"
#include "ui/style/palettes.h"
#include "ui/style/quarlin_style.h"
#include "view3d/maps/map_builder.h"
#include "view3d/window/material_window.h"
#include "view3d/window/scene_module.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QImage>

#include <cstdio>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

/// Answers no question; none is asked.
class NoChooser : public Chooser {
public:
    std::optional<QUrl> chooseFile(const FileQuestion&) override { return std::nullopt; }
    std::optional<QUrl> chooseFolder(const FolderQuestion&) override { return std::nullopt; }
};

void settle(const MaterialWindow& window) {
    QCoreApplication::processEvents();
    while (window.isBuilding()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    QCoreApplication::processEvents();
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 4) {
        std::fputs("usage: take_picture_3d SAMPLES MODULE FOLDER\n", stderr);
        return 2;
    }
    const QDir samples(QString::fromLocal8Bit(argv[1]));
    QApplication::setStyle(new QuarlinStyle);
    QApplication::setPalette(lightPalette());
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(12);
    QApplication::setFont(font);

    NoChooser chooser;
    MaterialStore materials(chooser);
    ConversionSettings settings = materials.settings();
    settings.roughnessInputIsGloss = true;
    settings.outputResolution = OutputResolution::matchBase;
    materials.setSettings(settings);
    for (const auto& [slot, map] : {std::pair(TextureSlotKind::baseColor, u"basecolor.jpg"_s),
                                    std::pair(TextureSlotKind::normal, u"normal.png"_s),
                                    std::pair(TextureSlotKind::occlusion, u"occlusion.png"_s),
                                    std::pair(TextureSlotKind::roughness, u"gloss.png"_s),
                                    std::pair(TextureSlotKind::metallic, u"metallic.png"_s)}) {
        materials.importTexture(QUrl::fromLocalFile(samples.filePath(u"brick_wall_"_s + map)), slot);
    }

    SceneOrProblem made = loadScene(QString::fromLocal8Bit(argv[2]));
    if (!made.scene) {
        std::fprintf(stderr, "take_picture_3d: %s\n", qPrintable(made.problem));
        return 1;
    }
    SceneLook look;
    look.backdrop = SceneBackdrop::studio;
    look.lampSide = -40;
    look.lampHeight = 35;
    MapBuilder details;
    MaterialWindow window(std::move(made.scene), look, details);
    window.resize(960, 600);
    window.show();
    window.setMaterial(toolMaterial(materials));
    settle(window);

    const QString path = QDir(QString::fromLocal8Bit(argv[3])).filePath(u"view3d.png"_s);
    if (!window.grab().toImage().convertToFormat(QImage::Format_RGB32).save(path)) {
        std::fprintf(stderr, "take_picture_3d: could not write %s\n", qPrintable(path));
        return 1;
    }
    return 0;
}
