#include "ui/display/symbol_view.h"

#include "ui/style/colors.h"
#include "ui/style/symbol.h"

#include <QPainter>

#include <utility>

namespace quarlin {

SymbolView::SymbolView(QString name, int size, int frameWidth, QWidget* parent)
    : QWidget(parent), m_name(std::move(name)), m_size(size), m_frameWidth(frameWidth) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SymbolView::setSymbol(const QString& name) {
    m_name = name;
    update();
}

void SymbolView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSymbol(painter, m_name, QRectF((width() - m_size) / 2.0, (height() - m_size) / 2.0, m_size, m_size),
                secondaryColor(palette()));
}

}  // namespace quarlin
