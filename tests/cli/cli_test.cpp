#include "cli_test.h"

#include <QDir>
#include <QFile>

namespace quarlin::tests {

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

FolderContents contentsOf(const QString& path) {
    FolderContents contents;
    const QDir folder(path);
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden)) {
        contents[name] = bytesOf(folder.filePath(name));
    }
    return contents;
}

void expectSame(const FolderContents& actual, const FolderContents& wanted) {
    EXPECT_EQ(actual.keys(), wanted.keys());
    for (auto file = wanted.begin(); file != wanted.end(); ++file) {
        EXPECT_TRUE(actual.value(file.key()) == file.value()) << qPrintable(file.key()) << " has other bytes";
    }
}

FolderContents takenFrom(const QString& path) {
    const FolderContents contents = contentsOf(path);
    EXPECT_TRUE(QDir(path).removeRecursively());
    return contents;
}

QImage patternedImage(int width, int height, int seed) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int value = (x * 37 + y * 59 + seed * 83) % 256;
            image.setPixel(x, y, qRgb(value, (value * 3 + x) % 256, (value * 7 + y) % 256));
        }
    }
    return image;
}

QString CliTest::writeFile(const QString& name, const QByteArray& bytes) const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(file.fileName());
    EXPECT_EQ(file.write(bytes), bytes.size());
    return file.fileName();
}

QString CliTest::writeImage(const QString& name, const QImage& image) const {
    EXPECT_TRUE(image.save(path(name))) << qPrintable(name);
    return path(name);
}

QString CliTest::writeGray(const QString& name, int value) const {
    QImage image(4, 4, QImage::Format_Grayscale8);
    image.fill(QColor(value, value, value));
    return writeImage(name, image);
}

}  // namespace quarlin::tests
