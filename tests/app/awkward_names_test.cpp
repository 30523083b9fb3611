// Files and materials with awkward names on their way through the window, the drop and the command.

#include "awkward_names.h"

#include "imaging/pixels/image_view.h"
#include "model/conversion_settings.h"
#include "model/material_name.h"
#include "model/normal_generator_settings.h"
#include "model/texture_slot_kind.h"
#include "ui/controls/name_field.h"
#include "ui/panels/texture_card.h"
#include "window_fixture.h"

#include <QClipboard>
#include <QDir>
#include <QProcess>
#include <QTextEdit>

using namespace Qt::StringLiterals;

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

    TextureCard& baseColorCard() const { return child<TextureCard>(page(), u"baseColor"_s); }
    NameField& nameField() const { return *page().findChild<NameField*>(); }
    QString log() const { return page().findChild<QTextEdit*>()->toPlainText(); }

    void exportInto(const QString& into) {
        chooser.folder = QUrl::fromLocalFile(folder.path(into));
        click(child<Button>(page(), u"export"_s));
    }
    void chooseBaseSize() { click(withText<QAbstractButton>(page(), u"Base Size"_s)); }

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
        EXPECT_EQ(child<TextLabel>(baseColorCard(), u"fileName"_s).text(), name);
        EXPECT_TRUE(
            withPlainBreaks(log()).contains(withPlainBreaks(u"Base Color loaded: %1, 4x4"_s.arg(name))))
            << log().toStdString();
        chooseBaseSize();
        exportInto(u"window"_s);
        QProcess command;
        command.start(QStringLiteral(QUARLIN_CLI),
                      {u"material"_s, u"--base-color"_s, folder.path(name), u"--size"_s, u"base"_s,
                       u"--output"_s, folder.path(u"command"_s)});
        ASSERT_TRUE(command.waitForFinished());
        const QStringList sets = names(u"window"_s);
        EXPECT_EQ(names(u"command"_s), sets);
        const QString stem = name.chopped(4);
        if (name.toUtf8().size() < 230) {
            EXPECT_EQ(command.exitCode(), 0) << command.readAllStandardError().toStdString();
            EXPECT_EQ(sets, QStringList{safeMaterialName(stem, {})});
        } else {
            // The folder may have the name, the images in it may not.
            EXPECT_TRUE(
                materials.logLines().constFirst().contains(u"Export failed: Could not create PNG image: "_s));
            EXPECT_EQ(command.exitCode(), 1);
        }
        ASSERT_EQ(sets.size(), 1);
        EXPECT_EQ(contents(folder.path(u"window/"_s + sets.constFirst())),
                  contents(folder.path(u"command/"_s + sets.constFirst())));
        remove(u"window"_s);
        remove(u"command"_s);
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
    load(TextureSlotKind::baseColor, u"Source.png"_s);
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
        exportInto(u"out"_s);
        ASSERT_NE(materials.lastExportURL(), std::nullopt);
        const QString set =
            QFileInfo(materials.lastExportURL()->adjusted(QUrl::StripTrailingSlash).path()).fileName();
        EXPECT_EQ(names(u"out"_s), QStringList{set});
        EXPECT_EQ(set, safeMaterialName(nameField().text(), ConversionSettings::defaultMaterialName()));
        remove(u"out"_s);
        EXPECT_EQ(names(QString()), before);
    }
}

TEST_F(AwkwardNames, OfMaterialsAreTheSameToTheCommand) {
    const QUrl source = folder.texture(u"Source.png"_s);
    for (const AwkwardMaterialName& material : awkwardMaterialNames()) {
        if (material.typed.contains(QChar(0))) {
            // No argument of a program can hold it.
            continue;
        }
        QProcess command;
        command.start(QStringLiteral(QUARLIN_CLI),
                      {u"maps"_s, u"--source"_s, source.toLocalFile(), u"--name"_s, material.typed,
                       u"--size"_s, u"base"_s, u"--output"_s, folder.path(u"out"_s)});
        ASSERT_TRUE(command.waitForFinished());
        EXPECT_EQ(command.exitCode(), 0) << command.readAllStandardError().toStdString();
        const QString set =
            material.folder.isEmpty() ? NormalGeneratorSettings::defaultMaterialName() : material.folder;
        EXPECT_EQ(names(u"out"_s), QStringList{set}) << material.typed.toStdString();
        remove(u"out"_s);
    }
}

}  // namespace
