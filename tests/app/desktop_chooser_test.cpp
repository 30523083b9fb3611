#include "app/desktop_chooser.h"

#include "view_fixture.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QSettings>
#include <QTimer>

#include <functional>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class DesktopChooserTest : public testing::Test {
protected:
    TextureFolder folder;
    DesktopChooser chooser;

    /// Operates the next dialog that opens.
    static void whenAsked(std::function<void(QFileDialog&)> answer) {
        QTimer::singleShot(0, [answer = std::move(answer)] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            answer(*dialog);
            if (dialog->isVisible()) {
                dialog->reject();
            }
        });
    }

    static FileQuestion imageQuestion() {
        constexpr auto types = allCases<ImageFileType>();
        return {u"Choose Normal Texture"_s, u"Use Texture"_s, {types.begin(), types.end()}};
    }
};

TEST_F(DesktopChooserTest, AsksForOneExistingImageFile) {
    whenAsked([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Choose Normal Texture"_s);
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), u"Use Texture"_s);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.nameFilters().size(), 7);
        EXPECT_TRUE(dialog.isModal());
    });
    EXPECT_EQ(chooser.chooseFile(imageQuestion()), std::nullopt);
}

TEST_F(DesktopChooserTest, ReturnsTheChosenFile) {
    const QUrl file = folder.texture(u"a.png"_s);
    whenAsked([&](QFileDialog& dialog) {
        dialog.setDirectory(QFileInfo(file.toLocalFile()).path());
        dialog.selectFile(file.toLocalFile());
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(chooser.chooseFile(imageQuestion()), file);
}

TEST_F(DesktopChooserTest, AsksForOneFolderThatMayBeMade) {
    whenAsked([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Choose Export Folder"_s);
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), u"Export Here"_s);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
        EXPECT_FALSE(dialog.testOption(QFileDialog::ReadOnly));
    });
    EXPECT_EQ(chooser.chooseFolder({u"Choose Export Folder"_s, u"Export Here"_s}), std::nullopt);
}

TEST_F(DesktopChooserTest, ReturnsTheChosenFolder) {
    whenAsked([&](QFileDialog& dialog) {
        dialog.setDirectory(folder.url().toLocalFile());
        dialog.selectFile(folder.url().toLocalFile());
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = chooser.chooseFolder({u"Title"_s, u"Here"_s});
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(QFileInfo(chosen->toLocalFile()), QFileInfo(folder.url().toLocalFile()));
}

TEST_F(DesktopChooserTest, RemembersThePlacesOfTexturesAndExportsApart) {
    const QUrl file = folder.texture(u"a.png"_s);
    ASSERT_TRUE(QDir(folder.path({})).mkdir(u"sets"_s));
    const QString sets = folder.path(u"sets"_s);
    const auto choose = [](QFileDialog& dialog, const QString& path) {
        dialog.setDirectory(QFileInfo(path).path());
        dialog.selectFile(path);
        static_cast<QDialog&>(dialog).accept();
    };
    whenAsked([&](QFileDialog& dialog) { choose(dialog, file.toLocalFile()); });
    ASSERT_TRUE(chooser.chooseFile(imageQuestion()).has_value());
    whenAsked([&](QFileDialog& dialog) { choose(dialog, sets); });
    ASSERT_TRUE(chooser.chooseFolder({u"Title"_s, u"Here"_s}).has_value());
    whenAsked([&](QFileDialog& dialog) { EXPECT_EQ(dialog.directory(), QDir(folder.path({}))); });
    EXPECT_EQ(chooser.chooseFile(imageQuestion()), std::nullopt);
    whenAsked([&](QFileDialog& dialog) { EXPECT_EQ(dialog.directory(), QDir(sets)); });
    EXPECT_EQ(chooser.chooseFolder({u"Title"_s, u"Here"_s}), std::nullopt);
}

TEST_F(DesktopChooserTest, WritesNoHistory) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path(u"settings"_s));
    DesktopChooser own;
    whenAsked([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(own.chooseFile(imageQuestion()), std::nullopt);
    EXPECT_FALSE(QFileInfo::exists(folder.path(u"settings"_s)));
}

TEST_F(DesktopChooserTest, LeavesNoListOfSuggestionsOnTheScreen) {
    QPointer<QWidget> list;
    whenAsked([&](QFileDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>();
        name->completer()->popup()->show();
        list = name->completer()->popup();
        dialog.reject();
    });
    EXPECT_EQ(chooser.chooseFolder({u"Title"_s, u"Here"_s}), std::nullopt);
    EXPECT_TRUE(list == nullptr || !list->isVisible());
}

TEST_F(DesktopChooserTest, LetsTheWindowPaintBeforeItReturns) {
    QWidget window;
    window.resize(300, 200);
    window.show();
    window.activateWindow();
    settle();
    bool isPainted = false;
    whenAsked([&](QFileDialog& dialog) {
        // What the display server asks for once the dialog is gone.
        QObject::connect(&dialog, &QDialog::finished, &window, [&] {
            QMetaObject::invokeMethod(
                &window, [&] { isPainted = true; }, Qt::QueuedConnection);
        });
        dialog.reject();
    });
    EXPECT_EQ(chooser.chooseFile(imageQuestion()), std::nullopt);
    EXPECT_TRUE(isPainted);
}

TEST(NameFilters, OfferAllTypesTogetherAndThenEachInOrder) {
    const QStringList filters = DesktopChooser::nameFilters({ImageFileType::png, ImageFileType::jpeg});
    EXPECT_EQ(filters, QStringList({u"All Images (*.png *.PNG *.jpg *.JPG *.jpeg *.JPEG *.jpe *.JPE)"_s,
                                    u"PNG Image (*.png *.PNG)"_s,
                                    u"JPEG Image (*.jpg *.JPG *.jpeg *.JPEG *.jpe *.JPE)"_s}));
}

}  // namespace
