#include "ui/display/picture_view.h"

#include "ui/accessibility/accessible_role.h"
#include "ui/style/checkerboard.h"
#include "ui/style/colors.h"
#include "ui/style/painting.h"

#include <QPainter>
#include <QPainterPath>

namespace quarlin {

PictureView::PictureView(double radius, bool outlined, QWidget* parent)
    : QWidget(parent), m_radius(radius), m_outlined(outlined) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    presentAs(*this, QAccessible::Graphic, {});
}

void PictureView::setImage(const QImage& image) {
    if (image.cacheKey() != m_image.cacheKey()) {
        m_image = image;
        m_scaled = {};
        update();
    }
}

const QPixmap& PictureView::scaledFor(double scale) {
    const QSize frame = size() * scale;
    if (m_scaled.size() != frame && !m_image.isNull()) {
        const QSize whole = m_image.size().scaled(frame, Qt::KeepAspectRatioByExpanding);
        const QRectF part((whole.width() - frame.width()) / 2.0, (whole.height() - frame.height()) / 2.0,
                          frame.width(), frame.height());
        const double ratio = static_cast<double>(m_image.width()) / whole.width();
        const QRectF source(part.topLeft() * ratio, part.size() * ratio);
        m_scaled = QPixmap::fromImage(m_image.copy(source.toAlignedRect().intersected(m_image.rect()))
                                          .scaled(frame, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    }
    return m_scaled;
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double scale = deviceScale(painter);
    if (const QPixmap& picture = scaledFor(scale); !picture.isNull()) {
        // A brush rather than a clip, because its edge is smooth. One pixel of the brush is one of the
        // device.
        painter.setPen(Qt::NoPen);
        if (m_image.hasAlphaChannel()) {
            // Smaller than the picture, or it would show through at the smooth corners of an opaque one.
            painter.setBrush(checkerboard(palette()));
            painter.drawRoundedRect(rect().adjusted(1, 1, -1, -1), m_radius - 1, m_radius - 1);
        }
        QBrush brush(picture);
        brush.setTransform(QTransform::fromScale(1 / scale, 1 / scale));
        painter.setBrush(brush);
        painter.drawRoundedRect(rect(), m_radius, m_radius);
    }
    if (m_outlined) {
        paintSurface(painter, rect(), m_radius, Qt::transparent,
                     withOpacity(secondaryColor(palette()), 0.18));
    }
}

SquarePictureView::SquarePictureView(double radius, QWidget* parent) : PictureView(radius, true, parent) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

}  // namespace quarlin
