#pragma once

#include <QWidget>

namespace quarlin {

/// Takes the place of the preview tiles while there are none.
class EmptyPreview : public QWidget {
    Q_OBJECT

public:
    /// Shows `symbol` over "No Preview".
    explicit EmptyPreview(const QString& symbol, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin
