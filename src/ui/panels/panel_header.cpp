#include "ui/panels/panel_header.h"

#include "ui/display/text_label.h"
#include "ui/style/metrics.h"

#include <QHBoxLayout>

namespace quarlin {

namespace {

constexpr int titleSpacing = 6;

}  // namespace

PanelHeader::PanelHeader(const QString& title, QWidget* parent)
    : QWidget(parent), m_row(new QHBoxLayout(this)) {
    m_row->setContentsMargins(metrics::standardPadding, metrics::standardPadding, metrics::standardPadding,
                              metrics::headerBottom);
    m_row->setSpacing(metrics::standardPadding);
    m_row->addStrut(metrics::headerRowHeight);
    m_row->addWidget(new TextLabel(title, TextStyle::title3));
    m_row->addStretch();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PanelHeader::addToTitle(QWidget* widget) {
    // The first item is the title; the gap of the row would be too wide here.
    auto* title = new QHBoxLayout;
    title->setSpacing(titleSpacing);
    QLayoutItem* label = m_row->takeAt(0);
    title->addItem(label);
    title->addWidget(widget);
    m_row->insertLayout(0, title);
}

void PanelHeader::addAtEnd(QWidget* widget, int stretch) { m_row->addWidget(widget, stretch); }

}  // namespace quarlin
