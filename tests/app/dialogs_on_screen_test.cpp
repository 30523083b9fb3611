// What the user sees of a file dialog, on a real screen without a compositor.

#include "app/desktop_chooser.h"
#include "view_fixture.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QScreen>
#include <QTimer>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class DialogsOnScreen : public testing::Test {
protected:
    DialogsOnScreen() {
        QPalette palette;
        palette.setColor(QPalette::Window, color);
        window.setPalette(palette);
        window.setGeometry(20, 20, 900, 700);
        window.show();
        window.activateWindow();
    }

    /// What is seen of the window, or of what covers it.
    QImage seen() const {
        const QRect area = window.geometry();
        return window.screen()->grabWindow(0, area.x(), area.y(), area.width(), area.height()).toImage();
    }

    /// Whether the window is all that is seen of its area.
    bool isUncovered() const {
        const QImage screen = seen();
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                if (screen.pixelColor(x, y) != color) {
                    return false;
                }
            }
        }
        return true;
    }

    static bool waitUntil(const std::function<bool()>& condition) {
        constexpr int longest = 30'000;
        return QTest::qWaitFor(condition, longest);
    }

    /// Waits until the next dialog covers the window, then ends it by `end`.
    void whenSeen(std::function<void(QFileDialog&)> end) {
        QTimer::singleShot(0, [this, end = std::move(end)] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->setGeometry(100, 100, 600, 400);
            wasCovered = waitUntil([this] { return !isUncovered(); });
            end(*dialog);
            if (dialog->isVisible()) {
                dialog->reject();
            }
        });
    }

    const QColor color{200, 120, 40};
    QWidget window;
    TextureFolder folder;
    DesktopChooser chooser;
    bool wasCovered = false;
};

TEST_F(DialogsOnScreen, AreGoneOnceAFileIsChosen) {
    ASSERT_TRUE(waitUntil([this] { return isUncovered(); }));
    const QUrl file = folder.texture(u"a.png"_s);
    whenSeen([&file](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(file.toLocalFile());
        static_cast<QDialog&>(dialog).accept();
    });
    // The program does not handle events while it loads, so this is what is seen all that time.
    EXPECT_EQ(chooser.chooseFile({u"Choose"_s, u"Use"_s, {ImageFileType::png}}), file);
    EXPECT_TRUE(isUncovered());
    EXPECT_TRUE(wasCovered);
}

TEST_F(DialogsOnScreen, AreGoneOnceAFolderIsChosen) {
    ASSERT_TRUE(waitUntil([this] { return isUncovered(); }));
    whenSeen([this](QFileDialog& dialog) {
        dialog.setDirectory(folder.url().toLocalFile());
        dialog.selectFile(folder.url().toLocalFile());
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_TRUE(chooser.chooseFolder({u"Choose"_s, u"Here"_s}).has_value());
    EXPECT_TRUE(isUncovered());
    EXPECT_TRUE(wasCovered);
}

}  // namespace
