#include "view3d/window/material_view.h"
#include "window_fixture.h"

#include <QFile>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class ViewMenu : public WindowFixture {};

TEST_F(ViewMenu, OpensTheMaterialIn3D) {
    const QAction& action = entry(u"View"_s, u"Material in 3D"_s);
    EXPECT_TRUE(action.isEnabled());
    EXPECT_EQ(&action, &window.findChild<MaterialView*>()->action());
}

TEST_F(ViewMenu, NothingOfQtQuickIsLoadedBefore) {
    QFile libraries(u"/proc/self/maps"_s);
    if (!libraries.open(QIODevice::ReadOnly)) {
        GTEST_SKIP() << "this system does not list the libraries of a process";
    }
    const QByteArray loaded = libraries.readAll();
    EXPECT_TRUE(loaded.contains("libQt6Widgets"));
    EXPECT_FALSE(loaded.contains("libQt6Qml"));
    EXPECT_FALSE(loaded.contains("libQt6Quick"));
}

}  // namespace
