#include "ui/panels/panel_header.h"

#include "ui/display/text_label.h"
#include "ui/style/metrics.h"

#include <QHBoxLayout>

namespace quarlin {

namespace {

constexpr int titleSpacing = 6;

}  // namespace

PanelHeader::PanelHeader(const QString& title, QWidget* parent)
    : QWidget(parent), m_row(new QHBoxLayout(this)), m_title(new QHBoxLayout) {
    m_row->setContentsMargins(metrics::standardPadding, metrics::standardPadding, metrics::standardPadding,
                              metrics::headerBottom);
    m_row->setSpacing(metrics::standardPadding);
    m_row->addStrut(metrics::headerRowHeight);
    m_title->setSpacing(titleSpacing);
    m_title->addWidget(new TextLabel(title, TextStyle::title3));
    m_row->addLayout(m_title);
    m_row->addStretch();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PanelHeader::addToTitle(QWidget* widget) { m_title->addWidget(widget); }

void PanelHeader::addAtEnd(QWidget* widget, int stretch) { m_row->addWidget(widget, stretch); }

}  // namespace quarlin
