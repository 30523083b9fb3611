#pragma once

#include <QColor>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QString>
#include <QTemporaryDir>
#include <QUrl>

#include <gtest/gtest.h>

namespace quarlin::fixtures {

using namespace Qt::StringLiterals;

/// The temporary folder of one test, and functions that write files into it.
class TextureFolder {
public:
    QUrl url() const { return QUrl::fromLocalFile(m_folder.path()); }
    QString path(const QString& name) const { return m_folder.filePath(name); }

    /// Writes a plain image of `width` x `height` pixels.
    QUrl texture(const QString& name, int width = 4, int height = 4, const QColor& color = Qt::red) const {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(color);
        return save(name, image);
    }

    /// Writes `image`.
    QUrl save(const QString& name, const QImage& image) const {
        EXPECT_TRUE(image.save(path(name))) << name.toStdString();
        return QUrl::fromLocalFile(path(name));
    }

    /// Writes a file that is not an image, whatever its name.
    QUrl noTexture(const QString& name) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no image") > 0) << name.toStdString();
        return QUrl::fromLocalFile(path(name));
    }

    /// The location of a file where an export expects a folder.
    QUrl blocked() const { return noTexture(u"blocked"_s); }

private:
    QTemporaryDir m_folder;
};

}  // namespace quarlin::fixtures
