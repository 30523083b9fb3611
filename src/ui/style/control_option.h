#pragma once

#include <QStyleOption>

namespace quarlin {

// What the painting of controls asks of their options.

inline bool isSet(const QStyleOption& option, QStyle::StateFlag flag) { return (option.state & flag) != 0; }

/// `part` of a control, given for a left-to-right layout, where it is in the layout of the control.
inline QRect placed(const QStyleOption& option, const QRect& part) {
    return QStyle::visualRect(option.direction, option.rect, part.translated(option.rect.topLeft()));
}

/// Text alignment at the start of the line.
inline int atStart(const QStyleOption& option) {
    return static_cast<int>(QStyle::visualAlignment(option.direction, Qt::AlignLeft)) | Qt::AlignVCenter;
}

}  // namespace quarlin
