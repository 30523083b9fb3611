#include "ui/controls/segmented_picker.h"

#include "ui/accessibility/accessible_role.h"
#include "ui/controls/segment.h"
#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>
#include <QSignalBlocker>

namespace quarlin {

SegmentedPicker::SegmentedPicker(const QString& label, const QStringList& titles, QWidget* parent)
    : QWidget(parent), m_segments(new QButtonGroup(this)) {
    presentAs(*this, QAccessible::Grouping, label);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    int index = 0;
    for (const QString& title : titles) {
        auto* segment = new Segment(title, this);
        segment->setAccessibleDescription(label);
        // Tab stops at the chosen segment only; the arrow keys move to the others.
        connect(segment, &Segment::toggled, segment,
                [segment](bool isChosen) { segment->setFocusPolicy(isChosen ? Qt::TabFocus : Qt::NoFocus); });
        segment->setFocusPolicy(Qt::NoFocus);
        m_segments->addButton(segment, index++);
        row->addWidget(segment, segment->minimumSizeHint().width());
    }
    // Not only clicks: assistive technology chooses a segment without them.
    connect(m_segments, &QButtonGroup::idToggled, this, [this](int id, bool isChosen) {
        if (isChosen) {
            Q_EMIT chosen(id);
        }
    });
}

int SegmentedPicker::currentIndex() const { return m_segments->checkedId(); }

void SegmentedPicker::setCurrentIndex(int index) {
    if (QAbstractButton* segment = m_segments->button(index)) {
        const QSignalBlocker quietly(m_segments);
        segment->setChecked(true);
    }
}

void SegmentedPicker::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor secondary = secondaryColor(palette());
    paintSurface(painter, rect(), metrics::controlRadius, withOpacity(secondary, 0.1),
                 withOpacity(secondary, 0.24));
    // A line between two segments, unless one of them is chosen and so has an edge of its own.
    const QList<QAbstractButton*> segments = m_segments->buttons();
    for (qsizetype index = 1; index < segments.size(); ++index) {
        if (!segments[index - 1]->isChecked() && !segments[index]->isChecked()) {
            const QRect left = segments[index - 1]->geometry();
            const int x = layoutDirection() == Qt::LeftToRight ? left.right() + 1 : left.left();
            painter.fillRect(x, 7, 1, height() - 14, withOpacity(secondary, 0.24));
        }
    }
}

}  // namespace quarlin
