#include "model/texture_slot_kind.h"
#include "painted_textures.h"
#include "set_files.h"
#include "ui/controls/segment.h"
#include "ui/controls/slider.h"
#include "ui/controls/stepper.h"
#include "window_fixture.h"

#include <QCheckBox>
#include <QDir>
#include <QProcess>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

/// The contents of the files of a folder, by name.
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
    QUrl tiles = folder.save(u"Tiles.png"_s, paintedTiles(96, 64));
    QUrl dots = folder.save(u"Dots.png"_s, paintedTiles(64, 64).mirrored(true, false));

    static void run(const QStringList& arguments) {
        QProcess process;
        process.start(QStringLiteral(QUARLIN_CLI), arguments);
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    }

    /// Exports the shown tool into the folder `into`.
    void exportInto(const QString& into) {
        chooser.folder = QUrl::fromLocalFile(folder.path(into));
        click(child<Button>(page(), u"export"_s));
    }

    void toggle(const char* title) { click(withText<QCheckBox>(page(), QString::fromLatin1(title))); }

    void slideToEnd(const char* title) {
        for (Slider* slider : page().findChildren<Slider*>()) {
            if (slider->accessibleName() == QString::fromLatin1(title)) {
                press(*slider, Qt::Key_End);
            }
        }
    }

    void expectSame(const QString& name, std::size_t count) const {
        const auto fromWindow = contents(folder.path(u"window/"_s + name));
        const auto fromCommand = contents(folder.path(u"command/"_s + name));
        EXPECT_EQ(fromWindow.size(), count);
        EXPECT_TRUE(fromWindow == fromCommand);
    }
};

TEST_F(CommandLine, WritesTheSameMaterialSet) {
    materials.importTexture(tiles, TextureSlotKind::baseColor);
    materials.importTexture(dots, TextureSlotKind::normal);
    materials.importTexture(dots, TextureSlotKind::roughness);
    settle();
    click(withText<Segment>(page(), u"512"_s));
    toggle("Roughness input is gloss/smoothness");
    toggle("Flip normal green channel");
    slideToEnd("Metallic");
    exportInto(u"window"_s);
    run({u"material"_s, u"--base-color"_s, tiles.toLocalFile(), u"--normal"_s, dots.toLocalFile(),
         u"--roughness"_s, dots.toLocalFile(), u"--size"_s, u"512"_s, u"--gloss"_s, u"--flip-normal-green"_s,
         u"--default-metallic"_s, u"1"_s, u"--output"_s, folder.path(u"command"_s)});
    expectSame(u"Tiles"_s, materialFiles().size());
}

TEST_F(CommandLine, WritesTheSameGeneratedSet) {
    showTool(StudioTool::normalGenerator);
    maps.importSourceTexture(tiles);
    settle();
    click(withText<Segment>(page(), u"Base Size"_s));
    slideToEnd("Strength");
    Stepper& smoothing = *page().findChild<Stepper*>();
    click(smoothing, smoothing.upperHalf().center());
    toggle("Invert height");
    toggle("Write gloss");
    exportInto(u"window"_s);
    run({u"maps"_s, u"--source"_s, tiles.toLocalFile(), u"--size"_s, u"base"_s, u"--strength"_s, u"10"_s,
         u"--smoothing"_s, u"2"_s, u"--invert-height"_s, u"--no-gloss"_s, u"--output"_s,
         folder.path(u"command"_s)});
    expectSame(u"Tiles"_s, generatedFiles().size() - 1);
}

}  // namespace
