#include "window_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class GeneratorMenu : public WindowFixture {
protected:
    QAction& exportEntry = entry(u"Map Generator"_s, u"Export Map Set..."_s);
    QAction& buildEntry = entry(u"Map Generator"_s, u"Build Preview"_s);
    QAction& resetEntry = entry(u"Map Generator"_s, u"Reset Input"_s);
};

TEST_F(GeneratorMenu, HasShortcutsOfItsOwn) {
    EXPECT_EQ(exportEntry.shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_E));
    EXPECT_EQ(buildEntry.shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R));
    EXPECT_EQ(resetEntry.shortcut(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backspace));
}

TEST_F(GeneratorMenu, IsEnabledByASource) {
    load(TextureSlotKind::baseColor);
    for (const QAction* action : {&exportEntry, &buildEntry, &resetEntry}) {
        EXPECT_FALSE(action->isEnabled());
    }
    loadSource();
    for (const QAction* action : {&exportEntry, &buildEntry, &resetEntry}) {
        EXPECT_TRUE(action->isEnabled());
    }
}

TEST_F(GeneratorMenu, ActsOnTheGeneratorWhicheverToolShows) {
    load(TextureSlotKind::baseColor);
    loadSource();
    const QStringList materialLog = materials.logLines();
    const qsizetype lines = maps.logLines().size();
    const Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::ShiftModifier;
    press(window, Qt::Key_R, both);
    EXPECT_EQ(maps.logLines().size(), lines + 1);
    press(window, Qt::Key_E, both);
    EXPECT_EQ(chooser.folderQuestions.size(), 1U);
    press(window, Qt::Key_Backspace, both);
    EXPECT_EQ(maps.logLines(), QStringList{u"Inputs cleared."_s});
    EXPECT_EQ(materials.logLines(), materialLog);
    EXPECT_TRUE(materials.canExport());
}

}  // namespace
