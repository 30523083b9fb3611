#pragma once

#include <QStringList>
#include <QTextEdit>
#include <QWheelEvent>

class QFocusFrame;

namespace quarlin {

/// Lines of text that can be selected, across lines too, and copied. As high as its text: the panel around it
/// scrolls, also with the keys that do not move the caret.
class LogView : public QTextEdit {
    Q_OBJECT

public:
    explicit LogView(QWidget* parent = nullptr);

    /// The lines as shown, oldest first.
    QStringList lines() const;

    /// Shows `lines`, oldest first. The selection is kept where its lines are.
    void setLines(const QStringList& lines);

Q_SIGNALS:
    /// The user has moved the caret to `line`, an area of the log.
    void caretMoved(const QRect& line);

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    void applyStyle();
    void fitHeight();
    void append(const QString& line);
    void removeFirstLines(qsizetype count);

    bool scrollsPanel(const QKeyEvent& key) const;

    QStringList m_lines;
    /// While lines are added and removed, which moves the caret with them.
    bool m_isChanging = false;
    /// The focus ring, which is around the log so that it does not touch letters.
    QFocusFrame* m_ring;
};

}  // namespace quarlin
