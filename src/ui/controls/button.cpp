#include "ui/controls/button.h"

#include "ui/style/painting.h"
#include "ui/style/symbol.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace quarlin {

Button::Button(ButtonStyle style, const QString& symbol, const QString& text, QWidget* parent)
    : QPushButton(symbolIcon(symbol), text, parent), m_style(style) {
    setFlat(style == ButtonStyle::borderless);
    setSizePolicy(text.isEmpty() ? QSizePolicy::Fixed : QSizePolicy::Minimum, QSizePolicy::Fixed);
}

Button* Button::symbolOnly(const QString& symbol, const QString& help, QWidget* parent) {
    auto* button = new Button(ButtonStyle::borderless, symbol, {}, parent);
    button->setToolTip(help);
    button->setAccessibleName(help);
    return button;
}

void Button::setMark(const QString& reason) {
    m_isMarked = !reason.isEmpty();
    setAccessibleDescription(reason);
    update();
}

void Button::paintEvent(QPaintEvent* event) {
    QPushButton::paintEvent(event);
    if (m_isMarked) {
        constexpr double distance = 6;
        const double x = layoutDirection() == Qt::LeftToRight ? width() - distance : distance;
        QPainter painter(this);
        paintDot(painter, palette(), {x, distance});
    }
}

void Button::initStyleOption(QStyleOptionButton* option) const {
    QPushButton::initStyleOption(option);
    // Only the look of a dialog's default button, not its keys.
    option->features.setFlag(QStyleOptionButton::DefaultButton, m_style == ButtonStyle::prominent);
}

}  // namespace quarlin
