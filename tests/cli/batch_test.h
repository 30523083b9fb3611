#pragma once

#include "cli_test.h"
#include "set_files.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

#include <vector>

namespace quarlin::tests {

using namespace Qt::StringLiterals;

/// A test with several sets and a folder for their sources.
class BatchTest : public CliTest {
protected:
    /// The path of a source. Its folder is created.
    QString sourcePath(const QString& name = {}) const {
        const QString file = path(u"sources/"_s + name);
        EXPECT_TRUE(QDir().mkpath(QFileInfo(file).path()));
        return file;
    }
    QString sources() const { return path(u"sources"_s); }

    /// Writes a small picture as a source. Another `seed` gives another picture.
    QString writeSource(const QString& name, int seed = 1) const {
        EXPECT_TRUE(patternedImage(16, 16, seed).save(sourcePath(name), "PNG"));
        return sourcePath(name);
    }
    QString writeBrokenSource(const QString& name) const {
        sourcePath(name);
        return writeFile(u"sources/"_s + name, "no picture");
    }

    /// Runs a command with the output folder, at the size of the sources.
    Outcome runBatch(const QString& command, const QStringList& arguments) const {
        return runCli(QStringList{command} + arguments +
                      QStringList{u"--size"_s, u"base"_s, u"--output"_s, output()});
    }
    Outcome runMaps(const QStringList& arguments) const { return runBatch(u"maps"_s, arguments); }
    Outcome runMaterial(const QStringList& arguments) const { return runBatch(u"material"_s, arguments); }

    /// The folders of the sets that were written.
    QStringList exportedSets() const {
        return QDir(output()).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
    }

    /// What the program prints after exporting a generated set with all its files.
    std::string mapsReport(const std::string& name) const {
        return "Export complete: " + output().toStdString() + "/" + name + "\n" +
               fixtures::writtenLines(namesOf(fixtures::generatedFiles(), QString::fromStdString(name)));
    }
    std::string materialReport(const std::string& name, bool hasNormal = false) const {
        return "Export complete: " + output().toStdString() + "/" + name + "\nWrote " + name +
               "_BaseColor.png\nWrote " + name + "_ORM.png\n" +
               (hasNormal ? "Wrote " + name + "_Normal.png\n" : "") + "Wrote " + name + ".gltf\nWrote " +
               name + "_SL_PBR_notes.txt\n";
    }
};

/// The lines of JSON that the program printed.
inline std::vector<QJsonObject> jsonLines(const std::string& output) {
    std::vector<QJsonObject> lines;
    for (const QByteArray& line : QByteArray::fromStdString(output).split('\n')) {
        if (!line.isEmpty()) {
            const QJsonDocument document = QJsonDocument::fromJson(line);
            EXPECT_TRUE(document.isObject()) << line.toStdString();
            lines.push_back(document.object());
        }
    }
    return lines;
}

}  // namespace quarlin::tests
