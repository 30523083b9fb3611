#include "app/desktop_chooser.h"

#include "view_fixture.h"

#include <QFileDialog>
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

TEST(NameFilters, OfferAllTypesTogetherAndThenEachInOrder) {
    const QStringList filters = DesktopChooser::nameFilters({ImageFileType::png, ImageFileType::jpeg});
    EXPECT_EQ(filters, QStringList({u"All Images (*.png *.PNG *.jpg *.JPG *.jpeg *.JPEG *.jpe *.JPE)"_s,
                                    u"PNG Image (*.png *.PNG)"_s,
                                    u"JPEG Image (*.jpg *.JPG *.jpeg *.JPEG *.jpe *.JPE)"_s}));
}

}  // namespace
