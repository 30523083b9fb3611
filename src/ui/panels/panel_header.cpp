#include "ui/panels/panel_header.h"

#include "ui/display/text_label.h"
#include "ui/style/metrics.h"

#include <QHBoxLayout>

namespace quarlin {

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

void PanelHeader::addAtEnd(QWidget* widget, int stretch) { m_row->addWidget(widget, stretch); }

}  // namespace quarlin
