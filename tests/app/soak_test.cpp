// A long day in the window: nothing grows and nothing stays open.

#include "memory_in_use.h"
#include "model/conversion_settings.h"
#include "model/normal_generator_settings.h"
#include "model/output_resolution.h"
#include "model/texture_slot_kind.h"
#include "window_fixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

qsizetype openDescriptors() {
    return QDir(u"/proc/self/fd"_s).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size();
}

class Soak : public WindowFixture {
protected:
    /// One import, one preview and one export in the tool whose turn it is, with other settings than before.
    void runRound(int number) {
        if (number % 2 == 0) {
            workOnMaterial(number);
        } else {
            workOnMaps(number);
        }
        settle();
    }

    /// The memory in use with nothing loaded: what a round leaves behind otherwise depends on what it loaded.
    qint64 memoryAtRest() {
        materials.reset();
        maps.reset();
        settle();
        return memoryInUse();
    }

private:
    QUrl texture(int number) const { return textures[number % textures.size()]; }

    void workOnMaterial(int number) {
        showTool(StudioTool::pbr);
        if (number % 60 == 0) {
            materials.reset();
        }
        const auto slots = allCases<TextureSlotKind>();
        materials.importTexture(texture(number), TextureSlotKind::baseColor);
        // Every other slot gets its turn, now and then with a file that holds no image.
        materials.importTexture(number % 18 == 0 ? unreadable : texture(number + 1),
                                slots[static_cast<std::size_t>(number / 2) % slots.size()]);
        ConversionSettings settings = materials.settings();
        settings.materialName = u"Material %1"_s.arg(number % 4);
        settings.outputResolution = OutputResolution::matchBase;
        settings.flipNormalGreen = number % 4 == 0;
        settings.roughnessInputIsGloss = number % 6 == 0;
        settings.exportNotes = number % 8 != 0;
        materials.setSettings(settings);
        finish(number);
    }

    void workOnMaps(int number) {
        showTool(StudioTool::normalGenerator);
        if (number % 30 == 1) {
            maps.reset();
        }
        maps.importSourceTexture(texture(number));
        if (number % 9 == 0) {
            maps.importSourceTexture(unreadable);
        }
        NormalGeneratorSettings settings = maps.settings();
        settings.materialName = u"Maps %1"_s.arg(number % 4);
        settings.outputResolution = OutputResolution::matchBase;
        settings.invertHeight = number % 4 == 1;
        settings.exportORM = number % 7 != 0;
        maps.setSettings(settings);
        finish(number);
    }

    /// Presses the buttons of the toolbar; now and then the folder is one that nothing can be written to.
    void finish(int number) {
        chooser.folder = number % 11 == 0 ? blocked : folder.url();
        for (Button* button : toolBarButtons()) {
            click(*button);
        }
    }

    QList<QUrl> textures{folder.texture(u"a.png"_s, 64, 64, Qt::red),
                         folder.texture(u"b.jpg"_s, 64, 32, Qt::green),
                         folder.texture(u"c.bmp"_s, 32, 64, Qt::blue)};
    QUrl unreadable = folder.noTexture(u"none.png"_s);
    QUrl blocked = folder.blocked();
};

TEST_F(Soak, AThousandImportsPreviewsAndExportsLeaveMemoryAndDescriptorsLevel) {
    constexpr int rounds = isSanitized ? 60 : 1000;
    constexpr int warmUp = 10;
    for (int number = 0; number < warmUp; ++number) {
        runRound(number);
    }
    const qint64 memory = memoryAtRest();
    const qsizetype descriptors = openDescriptors();
    for (int number = warmUp; number < rounds; ++number) {
        runRound(number);
        // What was asked for and logged would otherwise be all that grows.
        chooser.folderQuestions.clear();
    }
    EXPECT_TRUE(QFile::exists(folder.path(u"Material_2/Material_2_ORM.png"_s)));
    EXPECT_TRUE(QFile::exists(folder.path(u"Maps_1/Maps_1_normal.png"_s)));
    EXPECT_EQ(openDescriptors(), descriptors);
    // About 1 KiB a round, where one picture is 8 to 16 KiB. Freed blocks that threads keep for themselves
    // count as used, and make the figure swing by 0.3 MiB up and down; smaller leaks are the leak
    // sanitizer's.
    constexpr qint64 margin = qint64{1024} * 1024;
    const qint64 growth = memoryAtRest() - memory;
    EXPECT_LT(growth, margin);
    std::printf("memory in use: %lld bytes after %d rounds, %+lld after %d\n", static_cast<long long>(memory),
                warmUp, static_cast<long long>(growth), rounds);
}

}  // namespace
