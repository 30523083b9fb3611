// take_pictures SAMPLES FOLDER: loads the sample textures into the program's window, exports both sets, and
// saves what each tool then looks like as material.png and maps.png in FOLDER.

#include "app/main_window.h"
#include "stores/material_store.h"
#include "stores/normal_generator_store.h"
#include "ui/style/quarlin_style.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QTabWidget>
#include <QTime>

#include <cstdio>
#include <map>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

/// Answers every question for a folder with the same one.
class FixedFolder : public Chooser {
public:
    explicit FixedFolder(const QString& path) : m_folder(QUrl::fromLocalFile(path)) {}

    std::optional<QUrl> chooseFile(const FileQuestion&) override { return std::nullopt; }
    std::optional<QUrl> chooseFolder(const FolderQuestion&) override { return m_folder; }

private:
    QUrl m_folder;
};

/// The log's clock: a second later with each line.
class SteadyClock {
public:
    QTime operator()() { return m_time = m_time.addSecs(1); }

private:
    QTime m_time{10, 24, 0};
};

bool save(QWidget& window, const QString& path) {
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
    // Nothing is being edited, so no control shows that it has the keyboard.
    if (QWidget* focused = QApplication::focusWidget()) {
        focused->clearFocus();
    }
    const bool saved = window.grab().toImage().convertToFormat(QImage::Format_RGB32).save(path);
    if (!saved) {
        std::fprintf(stderr, "take_pictures: could not write %s\n", qPrintable(path));
    }
    return saved;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: take_pictures SAMPLES FOLDER\n", stderr);
        return 2;
    }
    const QDir samples(QString::fromLocal8Bit(argv[1]));
    const QDir pictures(QString::fromLocal8Bit(argv[2]));
    QApplication::setStyle(new QuarlinStyle);
    QFont font(u"DejaVu Sans"_s);
    font.setPixelSize(12);
    QApplication::setFont(font);

    // The log names the folder, so it has the same name every time.
    QDir exported(QDir::temp().filePath(u"Materials"_s));
    if (exported.exists() || !exported.mkpath(u"."_s)) {
        std::fprintf(stderr, "take_pictures: could not make the folder %s\n", qPrintable(exported.path()));
        return 1;
    }
    FixedFolder chooser(exported.path());
    const auto sample = [&](const QString& map) {
        return QUrl::fromLocalFile(samples.filePath(u"brick_wall_"_s + map));
    };

    MaterialStore materials(chooser, SteadyClock());
    NormalGeneratorStore maps(chooser, SteadyClock());
    MainWindow window(materials, maps);
    window.resize(1280, 800);
    window.show();

    ConversionSettings conversion = materials.settings();
    conversion.roughnessInputIsGloss = true;
    conversion.outputResolution = OutputResolution::px1024;
    materials.setSettings(conversion);
    const std::map<TextureSlotKind, QString> inputs{{TextureSlotKind::baseColor, u"basecolor.jpg"_s},
                                                    {TextureSlotKind::normal, u"normal.png"_s},
                                                    {TextureSlotKind::occlusion, u"occlusion.png"_s},
                                                    {TextureSlotKind::roughness, u"gloss.png"_s},
                                                    {TextureSlotKind::metallic, u"metallic.png"_s}};
    for (const auto& [slot, map] : inputs) {
        materials.importTexture(sample(map), slot);
    }
    materials.exportMaterialSet();
    bool saved = save(window, pictures.filePath(u"material.png"_s));

    NormalGeneratorSettings generator = maps.settings();
    generator.outputResolution = OutputResolution::px1024;
    maps.setSettings(generator);
    maps.importSourceTexture(sample(u"basecolor.jpg"_s));
    maps.exportSet();
    window.findChild<QTabWidget*>()->setCurrentIndex(1);
    saved = save(window, pictures.filePath(u"maps.png"_s)) && saved;

    exported.removeRecursively();
    return saved ? 0 : 1;
}
