#include "empty_preview.h"

#include "colors.h"
#include "metrics.h"
#include "painting.h"
#include "symbol_view.h"
#include "text_label.h"

#include <QPainter>
#include <QVBoxLayout>

namespace quarlin {

namespace {

constexpr int height = 180;
constexpr int symbolSize = 38;
constexpr int rowSpacing = 10;

}  // namespace

EmptyPreview::EmptyPreview(const QString& symbol, QWidget* parent) : QWidget(parent) {
    setMinimumHeight(quarlin::height);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* stack = new QVBoxLayout(this);
    stack->setSpacing(rowSpacing);
    stack->addStretch();
    stack->addWidget(new SymbolView(symbol, symbolSize, symbolSize), 0, Qt::AlignHCenter);
    stack->addWidget(new TextLabel(QStringLiteral("No Preview"), TextStyle::headline, TextWeight::secondary),
                     0, Qt::AlignHCenter);
    stack->addStretch();
}

void EmptyPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSurface(painter, rect(), metrics::cornerRadius, withOpacity(secondaryColor(palette()), 0.08),
                 Qt::transparent);
}

}  // namespace quarlin
