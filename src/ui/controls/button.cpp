#include "ui/controls/button.h"

#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"
#include "ui/style/symbol.h"

#include <QPainter>
#include <QStyle>

#include <utility>

namespace quarlin {

namespace {

constexpr int sidePadding = 14;
constexpr int borderlessPadding = 9;
constexpr int symbolGap = 7;
constexpr int symbolOnlySize = 24;

}  // namespace

Button::Button(ButtonStyle style, QString symbol, const QString& text, QWidget* parent)
    : QPushButton(text, parent), m_style(style), m_symbol(std::move(symbol)) {
    // Painted anew when the pointer comes and goes.
    setAttribute(Qt::WA_Hover);
    // A click acts and leaves the keyboard where it is.
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(text.isEmpty() ? QSizePolicy::Fixed : QSizePolicy::Minimum, QSizePolicy::Fixed);
}

Button* Button::symbolOnly(const QString& symbol, const QString& help, QWidget* parent) {
    auto* button = new Button(ButtonStyle::borderless, symbol, {}, parent);
    button->setToolTip(help);
    button->setAccessibleName(help);
    return button;
}

QSize Button::sizeHint() const {
    if (text().isEmpty()) {
        return {symbolOnlySize, symbolOnlySize};
    }
    const QSize label = fontMetrics().size(Qt::TextShowMnemonic, text());
    const int padding = m_style == ButtonStyle::borderless ? borderlessPadding : sidePadding;
    return {2 * padding + metrics::symbolSize + symbolGap + label.width(),
            qMax(metrics::controlHeight, label.height() + 10)};
}

QColor Button::contentColor() const {
    if (!isEnabled()) {
        return disabledColor(palette());
    }
    switch (m_style) {
        case ButtonStyle::prominent:
            return onAccentColor(palette());
        case ButtonStyle::borderless:
            return isDown() || underMouse() ? primaryColor(palette()) : secondaryColor(palette());
        case ButtonStyle::bordered:
            break;
    }
    return primaryColor(palette());
}

void Button::paintBackground(QPainter& painter) const {
    const QColor secondary = secondaryColor(palette());
    const bool hovered = isEnabled() && underMouse();
    QColor fill = Qt::transparent;
    QColor border = Qt::transparent;
    if (m_style == ButtonStyle::prominent && isEnabled()) {
        fill = accentColor(palette());
        fill = isDown() ? mixed(fill, Qt::black, 0.18) : hovered ? mixed(fill, Qt::white, 0.1) : fill;
        border = withOpacity(Qt::black, 0.12);
    } else if (m_style == ButtonStyle::borderless) {
        fill = withOpacity(secondary, !isEnabled() ? 0 : isDown() ? 0.24 : hovered ? 0.12 : 0);
    } else {
        const QColor base = palette().color(QPalette::Active, QPalette::Button);
        const double strength = !isEnabled() ? 0.03 : isDown() ? 0.2 : hovered ? 0.05 : 0;
        fill = mixed(base, primaryColor(palette()), strength);
        border = withOpacity(secondary, isEnabled() ? 0.34 : 0.2);
    }
    paintSurface(painter, rect(), metrics::controlRadius, fill, border);
}

void Button::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintBackground(painter);
    const QColor color = contentColor();
    constexpr int symbolSize = metrics::symbolSize;
    if (text().isEmpty()) {
        QRect symbolArea(0, 0, symbolSize, symbolSize);
        symbolArea.moveCenter(rect().center());
        paintSymbol(painter, m_symbol, symbolArea, color);
    } else {
        const int labelWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
        const int contentWidth = symbolSize + symbolGap + labelWidth;
        const QRect content((width() - contentWidth) / 2, 0, contentWidth, height());
        const QRect symbolArea(content.left(), (height() - symbolSize) / 2, symbolSize, symbolSize);
        const QRect labelArea(content.left() + symbolSize + symbolGap, 0, labelWidth + 1, height());
        paintSymbol(painter, m_symbol, QStyle::visualRect(layoutDirection(), rect(), symbolArea), color);
        painter.setPen(color);
        painter.drawText(QStyle::visualRect(layoutDirection(), rect(), labelArea),
                         Qt::AlignCenter | Qt::TextShowMnemonic, text());
    }
    paintFocusRing(painter, *this, rect(), metrics::controlRadius);
}

}  // namespace quarlin
