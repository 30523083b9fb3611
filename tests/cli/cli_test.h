#pragma once

#include "cli_run.h"

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QMap>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace quarlin::tests {

using namespace Qt::StringLiterals;

/// The bytes of every file in a folder, by name.
using FolderContents = QMap<QString, QByteArray>;

/// The files in the folder at `path`, including hidden ones.
FolderContents contentsOf(const QString& path);

/// Expects the same files with the same bytes.
void expectSame(const FolderContents& actual, const FolderContents& wanted);

/// Removes the folder at `path` and returns its files.
FolderContents takenFrom(const QString& path);

/// The bytes of the file at `path`.
QByteArray bytesOf(const QString& path);

/// A picture in which every pixel and channel differs from its neighbors. Another `seed` gives another
/// picture.
QImage patternedImage(int width, int height, int seed);

/// A test with a folder of its own, which is removed afterwards.
class CliTest : public testing::Test {
protected:
    /// The absolute path of `name` in the test's folder.
    QString path(const QString& name) const { return m_folder.filePath(name); }
    /// The folder that sets are exported to.
    QString output() const { return path(u"output"_s); }

    /// Writes a file into the test's folder and returns its path.
    QString writeFile(const QString& name, const QByteArray& bytes) const;
    QString writeImage(const QString& name, const QImage& image) const;
    /// Writes a picture of a single gray and returns its path.
    QString writeGray(const QString& name, int value) const;

private:
    QTemporaryDir m_folder;
};

}  // namespace quarlin::tests
