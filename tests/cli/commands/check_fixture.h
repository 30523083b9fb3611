#pragma once

#include "cli_test.h"

#include <QColorSpace>
#include <QFile>

#include <gmock/gmock.h>

#include <cmath>
#include <functional>

namespace quarlin::tests {

using namespace Qt::StringLiterals;

/// The sides of the images of the sets.
inline constexpr int side = 64;

inline QImage inGray(const QImage& image) {
    QImage gray = image.convertToFormat(QImage::Format_Grayscale8);
    // The profile that was read with the image is for RGB.
    gray.setColorSpace({});
    return gray;
}

/// A normal map of round bumps, with green pointing up.
inline QImage bumpyNormals() {
    QImage image(side, side, QImage::Format_RGB32);
    const auto byteOf = [](double component) {
        return static_cast<int>(std::lround((component * 0.5 + 0.5) * 255));
    };
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const double right = std::cos(x / 3.0) * std::sin(y / 4.0);
            const double down = std::sin(x / 3.0) * std::cos(y / 4.0) * 0.75;
            const double length = std::sqrt(right * right + down * down + 1);
            image.setPixel(x, y, qRgb(byteOf(-right / length), byteOf(down / length), byteOf(1 / length)));
        }
    }
    return image;
}

/// A test of `quarlin-cli check` with a set.
class Check : public CliTest {
protected:
    const QString set = output() + u"/Brick"_s;

    /// The path of a file of the set, given the end of its name.
    QString file(const char* suffix) const { return set + u"/Brick"_s + QString::fromUtf8(suffix); }

    /// Exports a set without any findings.
    void exportGoodSet(const QStringList& arguments = {}) const {
        const QString color = writeImage(u"color.png"_s, patternedImage(side, side, 1));
        const QString normal = writeImage(u"normal.png"_s, bumpyNormals());
        const Outcome outcome =
            runCli(QStringList{u"material"_s, u"--base-color"_s, color, u"--normal"_s, normal, u"--name"_s,
                               u"Brick"_s, u"--size"_s, u"base"_s, u"--output"_s, output()} +
                   arguments);
        ASSERT_EQ(outcome.status, 0) << outcome.errors;
    }

    Outcome check(const QStringList& arguments = {}) const {
        return runCli(QStringList{u"check"_s, set} + arguments);
    }
    /// Expects that the check of the set finds this and nothing else.
    void expectFinding(const std::string& finding) const {
        const Outcome outcome = check();
        EXPECT_EQ(outcome.errors, "");
        const bool isError = finding.starts_with("error");
        const bool isWarning = finding.starts_with("warning");
        EXPECT_EQ(outcome.status, isError ? 1 : isWarning ? 3 : 0);
        EXPECT_EQ(outcome.output, set.toStdString() + "\n  " + finding +
                                      "\n1 folder checked: " + (isError ? "1 error" : "0 errors") + ", " +
                                      (isWarning ? "1 warning" : "0 warnings") + ", " +
                                      (isError || isWarning ? "0 notes" : "1 note") + "\n");
    }
    void expectNothing(const Outcome& outcome) const {
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.errors, "");
        EXPECT_EQ(outcome.output, set.toStdString() + "\n1 folder checked: 0 errors, 0 warnings, 0 notes\n");
    }

    /// Replaces a part of the set's .gltf.
    void edit(const QByteArray& before, const QByteArray& after) const {
        QByteArray text = bytesOf(file(".gltf"));
        ASSERT_TRUE(text.contains(before));
        writeDocument(text.replace(before, after));
    }
    void writeDocument(const QByteArray& text) const { write(file(".gltf"), text); }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile device(path);
        ASSERT_TRUE(device.open(QIODevice::WriteOnly));
        ASSERT_EQ(device.write(bytes), bytes.size());
    }
    /// Applies `change` to an image of the set.
    void redraw(const char* suffix, const std::function<QImage(const QImage&)>& change) const {
        ASSERT_TRUE(change(QImage(file(suffix))).save(file(suffix), "PNG"));
    }
    void redrawAll(const std::function<QImage(const QImage&)>& change) const {
        for (const char* suffix : {"_BaseColor.png", "_ORM.png", "_Normal.png"}) {
            redraw(suffix, change);
        }
    }
};

}  // namespace quarlin::tests
