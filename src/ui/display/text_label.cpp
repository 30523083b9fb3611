#include "ui/display/text_label.h"

#include "ui/display/plain_tool_tip.h"
#include "ui/style/colors.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>

namespace quarlin {

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
        const bool isShortened = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
        // A tooltip may contain text of a file, which is no markup.
        const QString shown = toolTip().isEmpty() && isShortened ? text() : toolTip();
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
    const QRect area = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, area.width());
    painter.drawText(
        area, static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) | Qt::TextSingleLine,
        shown);
}

}  // namespace quarlin
