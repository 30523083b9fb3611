#include "ui/panels/empty_preview.h"

#include "ui/display/symbol_view.h"
#include "ui/display/text_label.h"
#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QPainter>
#include <QVBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

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
    stack->addWidget(new TextLabel(u"No Preview"_s, TextStyle::headline, TextWeight::secondary), 0,
                     Qt::AlignHCenter);
    stack->addStretch();
}

void EmptyPreview::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintSurface(painter, rect(), metrics::cornerRadius, withOpacity(secondaryColor(palette()), 0.08),
                 Qt::transparent);
}

}  // namespace quarlin
