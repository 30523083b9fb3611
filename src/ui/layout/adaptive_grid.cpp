#include "ui/layout/adaptive_grid.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace quarlin {

AdaptiveGrid::AdaptiveGrid(int minimumColumnWidth, int spacing, QWidget* parent)
    : QLayout(parent), m_minimumColumnWidth(minimumColumnWidth) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(spacing);
}

int AdaptiveGrid::columnCount(int width) const {
    return std::max(1, (width + spacing()) / (m_minimumColumnWidth + spacing()));
}

void AdaptiveGrid::addItem(QLayoutItem* item) { m_items.emplace_back(item); }

QLayoutItem* AdaptiveGrid::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* AdaptiveGrid::takeAt(int index) {
    if (index < 0 || index >= count()) {
        return nullptr;
    }
    QLayoutItem* item = m_items[static_cast<std::size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

int AdaptiveGrid::arrange(const QRect& rectangle, bool move) const {
    const int columns = columnCount(rectangle.width());
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    // Every column is equally wide, so that the rows line up; pixels that are left over go between them.
    const int width = (rectangle.width() - (columns - 1) * spacing()) / columns;
    const auto columnStart = [&](int column) {
        return columns == 1 ? 0 : (rectangle.width() - width) * column / (columns - 1);
    };
    int bottom = 0;
    for (std::size_t first = 0; first < m_items.size(); first += static_cast<std::size_t>(columns)) {
        const std::size_t end = std::min(m_items.size(), first + static_cast<std::size_t>(columns));
        const int top = first == 0 ? 0 : bottom + spacing();
        int height = 0;
        for (std::size_t index = first; index < end; ++index) {
            const QLayoutItem& item = *m_items[index];
            height = std::max(
                height, item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height());
        }
        for (std::size_t index = first; move && index < end; ++index) {
            const int column = static_cast<int>(index - first);
            const QRect cell(rectangle.left() + columnStart(column), rectangle.top() + top, width, height);
            m_items[index]->setGeometry(QStyle::visualRect(direction, rectangle, cell));
        }
        bottom = top + height;
    }
    return bottom;
}

int AdaptiveGrid::heightForWidth(int width) const { return arrange(QRect(0, 0, width, 0), false); }

QSize AdaptiveGrid::sizeHint() const {
    const int width = 2 * m_minimumColumnWidth + spacing();
    return {width, heightForWidth(width)};
}

QSize AdaptiveGrid::minimumSize() const { return {m_minimumColumnWidth, 0}; }

void AdaptiveGrid::setGeometry(const QRect& rectangle) {
    QLayout::setGeometry(rectangle);
    arrange(rectangle, true);
}

}  // namespace quarlin
