#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace quarlin {

/// A picture that fills its frame: scaled until it covers the frame, the rest cut off, the corners
/// rounded. A checkerboard shows where it is transparent.
class PictureView : public QWidget {
    Q_OBJECT

public:
    /// `radius` is that of the corners; `outlined` draws a faint line around the picture.
    PictureView(double radius, bool outlined, QWidget* parent = nullptr);

    const QImage& image() const { return m_image; }
    void setImage(const QImage& image);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The picture at the size of the frame, for `scale` device pixels per pixel.
    const QPixmap& scaledFor(double scale);

    QImage m_image;
    QPixmap m_scaled;
    double m_radius;
    bool m_outlined;
};

/// A `PictureView` that is as high as it is wide, whatever width it is given.
class SquarePictureView : public PictureView {
    Q_OBJECT

public:
    explicit SquarePictureView(double radius, QWidget* parent = nullptr);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return width; }
    QSize sizeHint() const override { return {124, 124}; }
    QSize minimumSizeHint() const override { return {1, 1}; }
};

}  // namespace quarlin
