#pragma once

#include <QSplitter>

namespace quarlin {

/// The three resizable columns of a tool: inputs, settings and previews.
class ColumnSplitter : public QSplitter {
    Q_OBJECT

public:
    ColumnSplitter(QWidget* inputs, QWidget* settings, QWidget* previews, QWidget* parent = nullptr);

protected:
    QSplitterHandle* createHandle() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool m_hasIdealWidths = false;
};

}  // namespace quarlin
