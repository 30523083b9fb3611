#include "painted_textures.h"
#include "segment.h"
#include "slider.h"
#include "stepper.h"
#include "toggle.h"
#include "window_fixture.h"

#include <QDir>
#include <QProcess>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// What is in the files of a folder, by name.
std::map<QString, QByteArray> contents(const QString& folder) {
    std::map<QString, QByteArray> files;
    for (const QFileInfo& info : QDir(folder).entryInfoList(QDir::Files)) {
        QFile file(info.filePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        files[info.fileName()] = file.readAll();
    }
    return files;
}

/// An export from the window gives the same bytes as the command with the same settings.
class CommandLine : public WindowFixture {
protected:
    QUrl tiles = folder.save(QStringLiteral("Tiles.png"), paintedTiles(96, 64));
    QUrl dots = folder.save(QStringLiteral("Dots.png"), paintedTiles(64, 64).mirrored(true, false));

    static void run(const QStringList& arguments) {
        QProcess process;
        process.start(QStringLiteral(QUARLIN_CLI), arguments);
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    }

    /// Exports the shown tool into the folder `into`.
    void exportInto(const QString& into) {
        chooser.folder = QUrl::fromLocalFile(folder.path(into));
        click(child<Button>(page(), QStringLiteral("export")));
    }

    void toggle(const char* title) { click(withText<Toggle>(page(), QString::fromLatin1(title))); }

    void slideToEnd(const char* title) {
        for (Slider* slider : page().findChildren<Slider*>()) {
            if (slider->accessibleName() == QString::fromLatin1(title)) {
                press(*slider, Qt::Key_End);
            }
        }
    }

    void expectSame(const QString& name, std::size_t count) const {
        const auto fromWindow = contents(folder.path(QStringLiteral("window/") + name));
        const auto fromCommand = contents(folder.path(QStringLiteral("command/") + name));
        EXPECT_EQ(fromWindow.size(), count);
        EXPECT_TRUE(fromWindow == fromCommand);
    }
};

TEST_F(CommandLine, WritesTheSameMaterialSet) {
    materials.importTexture(tiles, TextureSlotKind::baseColor);
    materials.importTexture(dots, TextureSlotKind::normal);
    materials.importTexture(dots, TextureSlotKind::roughness);
    settle();
    click(withText<Segment>(page(), QStringLiteral("512")));
    toggle("Roughness input is gloss/smoothness");
    toggle("Flip normal green channel");
    slideToEnd("Metallic");
    exportInto(QStringLiteral("window"));
    run({QStringLiteral("material"), QStringLiteral("--base-color"), tiles.toLocalFile(),
         QStringLiteral("--normal"), dots.toLocalFile(), QStringLiteral("--roughness"), dots.toLocalFile(),
         QStringLiteral("--size"), QStringLiteral("512"), QStringLiteral("--gloss"),
         QStringLiteral("--flip-normal-green"), QStringLiteral("--default-metallic"), QStringLiteral("1"),
         QStringLiteral("--output"), folder.path(QStringLiteral("command"))});
    expectSame(QStringLiteral("Tiles"), 5);
}

TEST_F(CommandLine, WritesTheSameGeneratedSet) {
    showTool(StudioTool::normalGenerator);
    maps.importSourceTexture(tiles);
    settle();
    click(withText<Segment>(page(), QStringLiteral("Base Size")));
    slideToEnd("Strength");
    Stepper& smoothing = *page().findChild<Stepper*>();
    click(smoothing, smoothing.upperHalf().center());
    toggle("Invert height");
    toggle("Write gloss");
    exportInto(QStringLiteral("window"));
    run({QStringLiteral("maps"), QStringLiteral("--source"), tiles.toLocalFile(), QStringLiteral("--size"),
         QStringLiteral("base"), QStringLiteral("--strength"), QStringLiteral("10"),
         QStringLiteral("--smoothing"), QStringLiteral("2"), QStringLiteral("--invert-height"),
         QStringLiteral("--no-gloss"), QStringLiteral("--output"), folder.path(QStringLiteral("command"))});
    expectSame(QStringLiteral("Tiles"), 9);
}

}  // namespace
