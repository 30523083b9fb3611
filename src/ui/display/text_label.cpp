#include "ui/display/text_label.h"

#include "ui/display/plain_tool_tip.h"
#include "ui/style/colors.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace quarlin {

namespace {

/// What the longest text of a preview needs in the narrowest tile. Much narrower letters would look like
/// those of another font.
constexpr double leastLetterWidth = 0.87;

/// The room for the text, as a part of the width of the text.
double roomFor(const QLabel& label) {
    const int width = label.fontMetrics().horizontalAdvance(label.text());
    return width == 0 ? 1 : static_cast<double>(label.contentsRect().width()) / width;
}

/// Whether a part of the text is left out.
bool isShortened(const QLabel& label) { return roomFor(label) < leastLetterWidth; }

}  // namespace

TextLabel::TextLabel(const QString& text, TextStyle style, TextWeight weight, QWidget* parent)
    : QLabel(text, parent), m_style(style), m_weight(weight) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    applyFont();
}

void TextLabel::setElided(bool elided) {
    m_elided = elided;
    updateGeometry();
}

void TextLabel::setTracking(double tracking) {
    m_tracking = tracking;
    applyFont();
}

QSize TextLabel::minimumSizeHint() const {
    const QSize hint = QLabel::minimumSizeHint();
    return m_elided ? QSize(0, hint.height()) : hint;
}

void TextLabel::applyFont() {
    QFont result = quarlin::font(m_style);
    if (m_tracking != 0) {
        result.setLetterSpacing(QFont::AbsoluteSpacing, m_tracking);
    }
    setFont(result);
}

bool TextLabel::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        applyFont();
    }
    if (event->type() == QEvent::ToolTip) {
        // A tooltip may contain text of a file, which is no markup.
        const QString shown = toolTip().isEmpty() && isShortened(*this) ? text() : toolTip();
        if (!shown.isEmpty()) {
            showPlainToolTip(*this, *static_cast<QHelpEvent*>(event), shown);
            return true;
        }
    }
    return QLabel::event(event);
}

void TextLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(!isEnabled()                        ? disabledColor(palette())
                   : m_weight == TextWeight::secondary ? secondaryColor(palette())
                                                       : primaryColor(palette()));
    const QRectF area = contentsRect();
    const double narrowing = isShortened(*this) ? 1 : std::min(1.0, roomFor(*this));
    const QString shown = isShortened(*this)
                              ? fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width())
                              : text();
    painter.translate(area.left(), 0);
    painter.scale(narrowing, 1);
    painter.drawText(
        QRectF(0, area.top(), area.width() / narrowing, area.height()),
        static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) | Qt::TextSingleLine,
        shown);
}

}  // namespace quarlin
