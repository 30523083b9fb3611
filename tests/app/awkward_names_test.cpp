// Files and materials with awkward names on their way through the window, the drop and the command.

#include "awkward_names.h"

#include "image_view.h"
#include "material_name.h"
#include "name_field.h"
#include "texture_card.h"
#include "window_fixture.h"

#include <QClipboard>
#include <QDir>
#include <QProcess>
#include <QTextEdit>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

class AwkwardNames : public WindowFixture {
protected:
    static std::map<QString, QByteArray> contents(const QString& path) {
        std::map<QString, QByteArray> files;
        for (const QFileInfo& info : QDir(path).entryInfoList(QDir::Files | QDir::Hidden)) {
            QFile file(info.filePath());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            files[info.fileName()] = file.readAll();
        }
        return files;
    }

    TextureCard& baseColorCard() const { return child<TextureCard>(page(), QStringLiteral("baseColor")); }
    NameField& nameField() const { return *page().findChild<NameField*>(); }
    QString log() const { return page().findChild<QTextEdit*>()->toPlainText(); }

    void exportInto(const QString& into) {
        chooser.folder = QUrl::fromLocalFile(folder.path(into));
        click(child<Button>(page(), QStringLiteral("export")));
    }
    void chooseBaseSize() { click(withText<QAbstractButton>(page(), QStringLiteral("Base Size"))); }

    /// The names of what is in `into`.
    QStringList names(const QString& into) const {
        return QDir(folder.path(into)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    void remove(const QString& into) const { QDir(folder.path(into)).removeRecursively(); }
};

/// Each line break of a name is one in the log as well, in whatever form the view has it.
QString withPlainBreaks(QString text) {
    return text.replace(u'\r', u'\n')
        .replace(QChar::LineSeparator, u'\n')
        .replace(QChar::ParagraphSeparator, u'\n');
}

TEST_F(AwkwardNames, OfDroppedFilesAreShownLoggedAndExportedAsTheCommandDoes) {
    for (const QString& name : awkwardFileNames()) {
        SCOPED_TRACE(name.toStdString());
        materials.reset();
        settle();
        QMimeData data;
        data.setUrls({folder.texture(name)});
        EXPECT_TRUE(dragOver(baseColorCard(), data));
        EXPECT_TRUE(dropOn(baseColorCard(), data));
        settle();
        ASSERT_TRUE(materials.canExport());
        EXPECT_EQ(child<TextLabel>(baseColorCard(), QStringLiteral("fileName")).text(), name);
        EXPECT_TRUE(withPlainBreaks(log()).contains(
            withPlainBreaks(QStringLiteral("Base Color loaded: %1, 4x4").arg(name))))
            << log().toStdString();
        chooseBaseSize();
        exportInto(QStringLiteral("window"));
        QProcess command;
        command.start(QStringLiteral(QUARLIN_CLI),
                      {QStringLiteral("material"), QStringLiteral("--base-color"), folder.path(name),
                       QStringLiteral("--size"), QStringLiteral("base"), QStringLiteral("--output"),
                       folder.path(QStringLiteral("command"))});
        ASSERT_TRUE(command.waitForFinished());
        const QStringList sets = names(QStringLiteral("window"));
        EXPECT_EQ(names(QStringLiteral("command")), sets);
        const QString stem = name.chopped(4);
        if (name.toUtf8().size() < 230) {
            EXPECT_EQ(command.exitCode(), 0) << command.readAllStandardError().toStdString();
            EXPECT_EQ(sets, QStringList{safeMaterialName(stem, {})});
        } else {
            // The folder may have the name, the images in it may not.
            EXPECT_TRUE(materials.logLines().constFirst().contains(
                QStringLiteral("Export failed: Could not create PNG image: ")));
            EXPECT_EQ(command.exitCode(), 1);
        }
        ASSERT_EQ(sets.size(), 1);
        EXPECT_EQ(contents(folder.path(QStringLiteral("window/") + sets.constFirst())),
                  contents(folder.path(QStringLiteral("command/") + sets.constFirst())));
        remove(QStringLiteral("window"));
        remove(QStringLiteral("command"));
    }
}

TEST_F(AwkwardNames, OfChosenFilesAreShownAsTheyAre) {
    showTool(StudioTool::normalGenerator);
    for (const QString& name : awkwardFileNames()) {
        chooser.file = folder.texture(name);
        maps.chooseSourceTexture();
        settle();
        EXPECT_TRUE(shows(page(), name)) << name.toStdString();
        EXPECT_EQ(maps.source()->fileName, name);
    }
}

TEST_F(AwkwardNames, OfMaterialsThatArePastedNeverLeadOutOfTheChosenFolder) {
    load(TextureSlotKind::baseColor, QStringLiteral("Source.png"));
    chooseBaseSize();
    const QStringList before = names(QString());
    for (const AwkwardMaterialName& material : awkwardMaterialNames()) {
        SCOPED_TRACE(material.typed.toStdString());
        nameField().setFocus();
        nameField().selectAll();
        press(nameField(), Qt::Key_Delete);
        QApplication::clipboard()->setText(material.typed);
        nameField().paste();
        settle();
        exportInto(QStringLiteral("out"));
        ASSERT_NE(materials.lastExportURL(), std::nullopt);
        const QString set =
            QFileInfo(materials.lastExportURL()->adjusted(QUrl::StripTrailingSlash).path()).fileName();
        EXPECT_EQ(names(QStringLiteral("out")), QStringList{set});
        EXPECT_EQ(set, safeMaterialName(nameField().text(), ConversionSettings::defaultMaterialName()));
        remove(QStringLiteral("out"));
        EXPECT_EQ(names(QString()), before);
    }
}

TEST_F(AwkwardNames, OfMaterialsAreTheSameToTheCommand) {
    const QUrl source = folder.texture(QStringLiteral("Source.png"));
    for (const AwkwardMaterialName& material : awkwardMaterialNames()) {
        if (material.typed.contains(QChar(0))) {
            // No argument of a program can hold it.
            continue;
        }
        QProcess command;
        command.start(
            QStringLiteral(QUARLIN_CLI),
            {QStringLiteral("maps"), QStringLiteral("--source"), source.toLocalFile(),
             QStringLiteral("--name"), material.typed, QStringLiteral("--size"), QStringLiteral("base"),
             QStringLiteral("--output"), folder.path(QStringLiteral("out"))});
        ASSERT_TRUE(command.waitForFinished());
        EXPECT_EQ(command.exitCode(), 0) << command.readAllStandardError().toStdString();
        const QString set =
            material.folder.isEmpty() ? NormalGeneratorSettings::defaultMaterialName() : material.folder;
        EXPECT_EQ(names(QStringLiteral("out")), QStringList{set}) << material.typed.toStdString();
        remove(QStringLiteral("out"));
    }
}

}  // namespace
