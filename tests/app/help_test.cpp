#include "ui/help/help_window.h"
#include "window_fixture.h"

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class Help : public WindowFixture {};

TEST_F(Help, OpensInAWindowOfItsOwn) {
    EXPECT_EQ(window.help(), nullptr);
    press(window, Qt::Key_F1);
    ASSERT_NE(window.help(), nullptr);
    EXPECT_TRUE(window.help()->isVisible());
    // The program ends with its main window.
    EXPECT_FALSE(window.help()->testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(Help, OpensOneWindowOnly) {
    QAction& help = entry(u"Help"_s, u"Quarlin Help"_s);
    help.trigger();
    const HelpWindow* first = window.help();
    help.trigger();
    EXPECT_EQ(window.help(), first);
}

}  // namespace
