#include "ui/window/brand_header.h"

#include "ui/display/symbol_view.h"
#include "ui/display/text_label.h"
#include "ui/layout/separator.h"
#include "ui/style/metrics.h"

#include <QHBoxLayout>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int spacing = 12;
constexpr int verticalPadding = 10;
constexpr double tracking = 1.2;
constexpr int dividerHeight = 18;
constexpr int symbolGap = 6;

}  // namespace

BrandHeader::BrandHeader(StudioTool tool, QWidget* parent) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(metrics::standardPadding, verticalPadding, metrics::standardPadding,
                            verticalPadding);
    row->setSpacing(spacing);

    auto* brand = new TextLabel(u"VOREK TECH"_s, TextStyle::title3Bold);
    brand->setTracking(tracking);
    row->addWidget(brand);

    auto* divider = new Separator(Qt::Vertical);
    divider->setFixedHeight(dividerHeight);
    row->addWidget(divider);

    auto* label = new QHBoxLayout;
    label->setSpacing(symbolGap);
    m_symbol = new SymbolView({}, metrics::symbolSize, metrics::symbolSize);
    label->addWidget(m_symbol);
    m_title = new TextLabel({}, TextStyle::headline, TextWeight::secondary);
    m_title->setObjectName(u"toolTitle"_s);
    label->addWidget(m_title);
    row->addLayout(label);
    row->addStretch();
    setTool(tool);
}

void BrandHeader::setTool(StudioTool tool) {
    m_symbol->setSymbol(systemImage(tool));
    m_title->setText(title(tool));
}

}  // namespace quarlin
