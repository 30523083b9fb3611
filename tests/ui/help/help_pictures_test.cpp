#include "picture_baseline.h"
#include "ui/help/help_window.h"
#include "view_fixture.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

TEST(HelpPictures, OfTheTableOfFiles) {
    HelpWindow window;
    window.resize(640, 560);
    // Its handle depends on the length of the whole text.
    window.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    window.open();
    settle();
    window.verticalScrollBar()->setValue(window.verticalScrollBar()->maximum());
    expectPictures(window, u"help"_s);
}

}  // namespace
