#include "desktop_chooser.h"

#include "view_fixture.h"

#include <QFileDialog>
#include <QTimer>

#include <functional>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class DesktopChooserTest : public testing::Test {
protected:
    TextureFolder folder;
    DesktopChooser chooser;

    /// Works the dialog that comes up next.
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
        return {QStringLiteral("Choose Normal Texture"),
                QStringLiteral("Use Texture"),
                {types.begin(), types.end()}};
    }
};

TEST_F(DesktopChooserTest, AsksForOneExistingImageFile) {
    whenAsked([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Choose Normal Texture"));
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), QStringLiteral("Use Texture"));
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        EXPECT_EQ(dialog.nameFilters().size(), 7);
        EXPECT_TRUE(dialog.isModal());
    });
    EXPECT_EQ(chooser.chooseFile(imageQuestion()), std::nullopt);
}

TEST_F(DesktopChooserTest, ReturnsTheChosenFile) {
    const QUrl file = folder.texture(QStringLiteral("a.png"));
    whenAsked([&](QFileDialog& dialog) {
        dialog.setDirectory(QFileInfo(file.toLocalFile()).path());
        dialog.selectFile(file.toLocalFile());
        static_cast<QDialog&>(dialog).accept();
    });
    EXPECT_EQ(chooser.chooseFile(imageQuestion()), file);
}

TEST_F(DesktopChooserTest, AsksForOneFolderThatMayBeMade) {
    whenAsked([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Choose Export Folder"));
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), QStringLiteral("Export Here"));
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
        EXPECT_FALSE(dialog.testOption(QFileDialog::ReadOnly));
    });
    EXPECT_EQ(chooser.chooseFolder({QStringLiteral("Choose Export Folder"), QStringLiteral("Export Here")}),
              std::nullopt);
}

TEST_F(DesktopChooserTest, ReturnsTheChosenFolder) {
    whenAsked([&](QFileDialog& dialog) {
        dialog.setDirectory(folder.url().toLocalFile());
        dialog.selectFile(folder.url().toLocalFile());
        static_cast<QDialog&>(dialog).accept();
    });
    const auto chosen = chooser.chooseFolder({QStringLiteral("Title"), QStringLiteral("Here")});
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(QFileInfo(chosen->toLocalFile()), QFileInfo(folder.url().toLocalFile()));
}

TEST(NameFilters, OfferAllTypesTogetherAndThenEachInOrder) {
    const QStringList filters = DesktopChooser::nameFilters({ImageFileType::png, ImageFileType::jpeg});
    EXPECT_EQ(filters,
              QStringList({QStringLiteral("All Images (*.png *.PNG *.jpg *.JPG *.jpeg *.JPEG *.jpe *.JPE)"),
                           QStringLiteral("PNG Image (*.png *.PNG)"),
                           QStringLiteral("JPEG Image (*.jpg *.JPG *.jpeg *.JPEG *.jpe *.JPE)")}));
}

}  // namespace
