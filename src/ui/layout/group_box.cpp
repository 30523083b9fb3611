#include "ui/layout/group_box.h"

#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"
#include "ui/style/typography.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QVBoxLayout>

namespace quarlin {

namespace {

constexpr int titleGap = 6;
constexpr int sidePadding = 12;
/// The toolkit's own inset and the 4 that every box of this window adds to it.
constexpr int verticalPadding = 8 + 4;

}  // namespace

GroupBox::GroupBox(const QString& title, int spacing, QWidget* parent)
    : QGroupBox(title, parent), m_rows(new QVBoxLayout(this)) {
    m_rows->setSpacing(spacing);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    arrange();
}

int GroupBox::titleHeight() const {
    return title().isEmpty() ? 0 : QFontMetrics(quarlin::font(TextStyle::headline)).height() + titleGap;
}

void GroupBox::arrange() {
    m_rows->setContentsMargins(sidePadding, titleHeight() + verticalPadding, sidePadding, verticalPadding);
    setContentsMargins(0, 0, 0, 0);
}

bool GroupBox::event(QEvent* event) {
    const bool handled = QGroupBox::event(event);
    if (event->type() == QEvent::ApplicationFontChange) {
        arrange();
    }
    return handled;
}

void GroupBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor secondary = secondaryColor(palette());
    const QRect box = rect().adjusted(0, titleHeight(), 0, 0);
    paintSurface(painter, box, metrics::cornerRadius, withOpacity(secondary, 0.06),
                 withOpacity(secondary, 0.14));
    painter.setFont(quarlin::font(TextStyle::headline));
    painter.setPen(primaryColor(palette()));
    painter.drawText(
        QRect(2, 0, width() - 4, titleHeight() - titleGap),
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) | Qt::AlignVCenter,
        title());
}

}  // namespace quarlin
