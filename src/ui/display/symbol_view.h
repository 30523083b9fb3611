#pragma once

#include <QString>
#include <QWidget>

namespace quarlin {

/// A symbol in the secondary color, as decoration next to text.
class SymbolView : public QWidget {
    Q_OBJECT

public:
    /// Draws the symbol `name`, `size` high and wide, in the middle of a frame `frameWidth` wide.
    SymbolView(QString name, int size, int frameWidth, QWidget* parent = nullptr);

    const QString& symbol() const { return m_name; }
    void setSymbol(const QString& name);

    QSize sizeHint() const override { return {m_frameWidth, m_size}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_name;
    int m_size;
    int m_frameWidth;
};

}  // namespace quarlin
