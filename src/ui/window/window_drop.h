#pragma once

#include <QList>
#include <QUrl>
#include <QWidget>

class QMimeData;

namespace quarlin {

/// Takes the files and folders that are dropped on a window, outside of what takes them itself. A frame
/// around the window shows that they can be dropped.
class WindowDrop : public QWidget {
    Q_OBJECT

public:
    /// `window` owns it.
    explicit WindowDrop(QWidget* window);

Q_SIGNALS:
    /// Emitted from the event loop: the program that the files come from waits for the end of the drop.
    void dropped(const QList<QUrl>& files);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool handleDrag(QEvent* event);
    void showFrame(bool isShown);

    QWidget& m_window;
};

}  // namespace quarlin
