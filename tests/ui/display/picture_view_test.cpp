#include "ui/display/picture_view.h"

#include "view_fixture.h"

#include <QPainter>

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

TEST(PictureView, FillsItsFrameAndCutsOffWhatStandsOver) {
    // Red on the left, green in the middle, blue on the right: the frame is square, so only green is left.
    QImage wide(90, 30, QImage::Format_RGB32);
    wide.fill(Qt::green);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 30; ++x) {
            wide.setPixelColor(x, y, Qt::red);
            wide.setPixelColor(60 + x, y, Qt::blue);
        }
    }
    PictureView view(0, false);
    view.setFixedSize(54, 54);
    view.setImage(wide);
    const QImage shown = view.grab().toImage();
    EXPECT_EQ(shown.pixelColor(2, 27), QColor(Qt::green));
    EXPECT_EQ(shown.pixelColor(51, 2), QColor(Qt::green));
    EXPECT_EQ(shown.pixelColor(27, 51), QColor(Qt::green));
}

TEST(PictureView, ShowsTheSamePartAtEveryScale) {
    // One dark quarter, which a tiled or shifted picture would show elsewhere too.
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            image.setPixelColor(x, y, Qt::black);
        }
    }
    PictureView view(0, false);
    view.setFixedSize(40, 40);
    view.setImage(image);
    for (const double scale : {1.0, 1.5, 2.0}) {
        QImage shown((QSizeF(40, 40) * scale).toSize(), QImage::Format_RGB32);
        shown.setDevicePixelRatio(scale);
        QPainter painter(&shown);
        view.render(&painter);
        painter.end();
        const auto at = [&](double x, double y) {
            return shown.pixelColor(qRound(x * scale), qRound(y * scale));
        };
        EXPECT_EQ(at(2, 2), QColor(Qt::black)) << scale;
        EXPECT_EQ(at(17, 17), QColor(Qt::black)) << scale;
        EXPECT_EQ(at(23, 17), QColor(Qt::white)) << scale;
        EXPECT_EQ(at(17, 38), QColor(Qt::white)) << scale;
        EXPECT_EQ(at(38, 38), QColor(Qt::white)) << scale;
    }
}

TEST(PictureView, RoundsItsCorners) {
    QImage image(54, 54, QImage::Format_RGB32);
    image.fill(Qt::red);
    PictureView view(6, false);
    view.setFixedSize(54, 54);
    view.setImage(image);
    const QImage shown = view.grab().toImage();
    EXPECT_NE(shown.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(27, 0), QColor(Qt::red));
}

TEST(PictureView, ShowsACheckerboardWhereThePictureIsTransparent) {
    QImage image(64, 64, QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(32, 0, 32, 64, Qt::red);
    PictureView view(0, false);
    view.setFixedSize(64, 64);
    view.setImage(image);
    const QImage shown = view.grab().toImage();
    EXPECT_NE(shown.pixel(4, 4), shown.pixel(12, 4));
    EXPECT_EQ(shown.pixel(4, 4), shown.pixel(12, 12));
    EXPECT_EQ(shown.pixel(4, 4), shown.pixel(20, 4));
    EXPECT_EQ(shown.pixelColor(40, 4), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(48, 4), QColor(Qt::red));
}

}  // namespace
