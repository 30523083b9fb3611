// The 3D view where Qt finds no QML modules: the qt.conf of this program names a folder that is not there.

#include "view3d/window/scene_module.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace quarlin;

namespace {

TEST(MissingModules, AreNamed) {
    const SceneOrProblem made = loadScene(QStringLiteral(QUARLIN_SCENE_MODULE));
    EXPECT_EQ(made.scene, nullptr);
    EXPECT_EQ(made.problem.toStdString(),
              "The 3D view needs the QML module QtQuick3D, which is not installed.");
}

}  // namespace
