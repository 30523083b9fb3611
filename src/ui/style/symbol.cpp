#include "ui/style/symbol.h"

#include "ui/style/colors.h"
#include "ui/style/painting.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// The symbol drawn at `pixels` x `pixels` device pixels, its black replaced by `color`.
QPixmap tinted(const QString& name, int pixels, const QColor& color) {
    const QString key = u"symbol/%1/%2/%3"_s.arg(name).arg(pixels).arg(color.rgba(), 8, 16);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QSvgRenderer renderer(u":/icons/%1.svg"_s.arg(name));
        QPainter painter(&image);
        renderer.render(&painter, QRectF(0, 0, pixels, pixels));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), color);
        painter.end();
        pixmap = QPixmap::fromImage(image);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

QColor iconColor(QIcon::Mode mode) {
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
        case QIcon::Disabled:
            return disabledColor(palette);
        case QIcon::Selected:
            return onAccentColor(palette);
        case QIcon::Active:
            return primaryColor(palette);
        case QIcon::Normal:
            break;
    }
    return secondaryColor(palette);
}

class SymbolIconEngine : public QIconEngine {
public:
    explicit SymbolIconEngine(QString name) : m_name(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rectangle, QIcon::Mode mode, QIcon::State) override {
        paintSymbol(*painter, m_name, rectangle, iconColor(mode));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QString iconName() override { return m_name; }

    QIconEngine* clone() const override { return new SymbolIconEngine(m_name); }

private:
    QString m_name;
};

}  // namespace

void paintSymbol(QPainter& painter, const QString& name, const QRectF& rectangle, const QColor& color) {
    const double scale = deviceScale(painter);
    const int pixels = qRound(qMin(rectangle.width(), rectangle.height()) * scale);
    if (pixels <= 0) {
        return;
    }
    // The corner is rounded to a device pixel, so that no line of the symbol falls between two.
    const double edge = pixels / scale;
    const QPointF corner(qRound((rectangle.center().x() - edge / 2) * scale) / scale,
                         qRound((rectangle.center().y() - edge / 2) * scale) / scale);
    const QPixmap pixmap = tinted(name, pixels, color);
    painter.drawPixmap(QRectF(corner, QSizeF(edge, edge)), pixmap, pixmap.rect());
}

QIcon symbolIcon(const QString& name) { return QIcon(new SymbolIconEngine(name)); }

}  // namespace quarlin
