#include "view3d/window/material_view.h"

#include "view3d/window/scene_module.h"
#include "view_fixture.h"

#include <QFile>
#include <QMessageBox>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class MaterialViews : public testing::Test {
protected:
    MaterialViews() {
        main.show();
        settle();
    }

    /// The message that opening the view with this plugin shows.
    QString messageWith(const QString& module) {
        MaterialView view(&main, module);
        view.action().trigger();
        settle();
        EXPECT_EQ(view.window(), nullptr);
        auto* box = main.findChild<QMessageBox*>();
        if (box == nullptr) {
            ADD_FAILURE() << "no message is shown";
            return {};
        }
        const QString text = box->text();
        delete box;
        return text;
    }

    TextureFolder folder;
    QWidget main;
};

TEST_F(MaterialViews, AMissingPluginIsNamed) {
    const QString file = folder.path(u"missing.so"_s);
    EXPECT_EQ(messageWith(file), u"The 3D view needs the file %1, which is not installed."_s.arg(file));
}

TEST_F(MaterialViews, AFileThatIsNoPluginIsReported) {
    EXPECT_TRUE(messageWith(folder.noTexture(u"broken.so"_s).toLocalFile())
                    .startsWith(u"The 3D view could not be loaded: "_s));
}

TEST_F(MaterialViews, ALibraryThatThePluginNeedsIsNamed) {
    QFile plugin(QStringLiteral(QUARLIN_SCENE_MODULE));
    ASSERT_TRUE(plugin.open(QIODevice::ReadOnly));
    QByteArray bytes = plugin.readAll();
    ASSERT_TRUE(bytes.contains("libQt6Quick3D.so.6"));
    bytes.replace("libQt6Quick3D.so.6", "libQt6Absent.so.06");
    const QString needy = folder.path(u"needy.so"_s);
    QFile copy(needy);
    ASSERT_TRUE(copy.open(QIODevice::WriteOnly));
    copy.write(bytes);
    copy.close();
    EXPECT_EQ(messageWith(needy),
              u"The 3D view needs the library libQt6Absent.so.06, which is not installed."_s);
}

TEST_F(MaterialViews, AScreenWithoutOpenGLIsReported) {
    EXPECT_EQ(messageWith(QStringLiteral(QUARLIN_SCENE_MODULE)),
              u"The 3D view needs OpenGL 3, which this screen does not offer."_s);
}

TEST_F(MaterialViews, TheEntryOfTheMenuHasItsShortcut) {
    MaterialView view(&main);
    EXPECT_EQ(view.action().text(), u"&Material in 3D"_s);
    EXPECT_EQ(view.action().shortcut(), QKeySequence(Qt::CTRL | Qt::Key_3));
}

}  // namespace
