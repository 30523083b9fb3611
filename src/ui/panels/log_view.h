#pragma once

#include <QStringList>
#include <QTextEdit>
#include <QWheelEvent>

namespace quarlin {

/// Lines of text that can be selected, across lines too, and copied. As high as its text.
class LogView : public QTextEdit {
    Q_OBJECT

public:
    explicit LogView(QWidget* parent = nullptr);

    /// The lines as shown, oldest first.
    QStringList lines() const;

    /// Shows `lines`, oldest first. The selection is kept where its lines are.
    void setLines(const QStringList& lines);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    /// The panel around the log scrolls, not the log.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
    void paintEvent(QPaintEvent* event) override;

private:
    void applyStyle();
    void fitHeight();
    void append(const QString& line);
    void removeFirstLines(qsizetype count);

    QStringList m_lines;
};

}  // namespace quarlin
