#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace quarlin {

/// Lays items out in as many equally wide columns as fit, row by row, and again whenever the width changes.
/// Rows are as high as their highest item.
class AdaptiveGrid : public QLayout {
    Q_OBJECT

public:
    /// Columns are at least `minimumColumnWidth` wide, with `spacing` between columns and between rows.
    AdaptiveGrid(int minimumColumnWidth, int spacing, QWidget* parent = nullptr);

    /// The number of columns that fit into `width`, at least one.
    int columnCount(int width) const;

    void addItem(QLayoutItem* item) override;
    int count() const override { return static_cast<int>(m_items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    void setGeometry(const QRect& rectangle) override;

private:
    /// Places the items from the top of `rectangle` on, if `move` is true, and returns the height that they
    /// take.
    int arrange(const QRect& rectangle, bool move) const;

    int m_minimumColumnWidth;
    std::vector<std::unique_ptr<QLayoutItem>> m_items;
};

}  // namespace quarlin
