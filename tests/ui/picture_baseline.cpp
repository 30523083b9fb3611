#include "picture_baseline.h"

#include "view_fixture.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <gtest/gtest.h>

#include <algorithm>

namespace quarlin::fixtures {

using namespace Qt::StringLiterals;

namespace {

/// Channels that differ by no more count as equal: lines and letters may be smoothed slightly differently.
constexpr int channelTolerance = 24;
/// This many pixels may differ by more.
constexpr int pixelTolerance = 8;

QImage pictureOf(QWidget& widget, double scale) {
    QImage image((QSizeF(widget.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    widget.render(&painter);
    painter.end();
    image.setDevicePixelRatio(1);
    return image;
}

/// The number of pixels that differ; they are marked in `difference`.
int countDifferences(const QImage& produced, const QImage& baseline, QImage& difference) {
    difference = QImage(produced.size(), QImage::Format_RGB32);
    difference.fill(Qt::black);
    int count = 0;
    for (int y = 0; y < produced.height(); ++y) {
        for (int x = 0; x < produced.width(); ++x) {
            const QRgb a = produced.pixel(x, y);
            const QRgb b = baseline.pixel(x, y);
            const int most = std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                       std::abs(qBlue(a) - qBlue(b))});
            if (most > channelTolerance) {
                ++count;
                difference.setPixel(x, y, qRgb(255, 255, 255));
            }
        }
    }
    return count;
}

}  // namespace

void expectPicture(QWidget& widget, const QString& name, double scale) {
    settle();
    const QImage produced = pictureOf(widget, scale);
    const QString baselinePath = QStringLiteral(QUARLIN_BASELINES "/%1.png").arg(name);
    if (qEnvironmentVariableIntValue("QUARLIN_UPDATE_BASELINES") != 0) {
        QDir().mkpath(QStringLiteral(QUARLIN_BASELINES));
        ASSERT_TRUE(produced.save(baselinePath, "PNG", 0)) << baselinePath.toStdString();
        return;
    }
    const QImage baseline = QImage(baselinePath).convertToFormat(QImage::Format_RGB32);
    QImage difference;
    const bool sameSize = baseline.size() == produced.size();
    const int differing = sameSize ? countDifferences(produced, baseline, difference) : -1;
    if (sameSize && differing <= pixelTolerance) {
        return;
    }
    const QDir folder(QStringLiteral(QUARLIN_PICTURES));
    folder.mkpath(u"."_s);
    produced.save(folder.filePath(name + u".png"_s));
    baseline.save(folder.filePath(name + u"_baseline.png"_s));
    difference.save(folder.filePath(name + u"_difference.png"_s));
    ADD_FAILURE() << "The picture " << name.toStdString() << " is " << produced.width() << "x"
                  << produced.height() << ", its baseline " << baseline.width() << "x" << baseline.height()
                  << "; pixels that differ: " << differing << ". See " << folder.path().toStdString();
}

void expectPictures(QWidget& widget, const QString& name) {
    expectPicture(widget, name + u"_light"_s);
    expectPicture(widget, name + u"_2x"_s, 2);
    useDarkPalette();
    expectPicture(widget, name + u"_dark"_s);
    useLightPalette();
}

}  // namespace quarlin::fixtures
