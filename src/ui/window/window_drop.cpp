#include "ui/window/window_drop.h"

#include "stores/dropped_file.h"
#include "ui/style/painting.h"

#include <QDropEvent>
#include <QPainter>

namespace quarlin {

WindowDrop::WindowDrop(QWidget* window) : QWidget(window), m_window(*window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool WindowDrop::eventFilter(QObject* watched, QEvent* event) {
    return watched == &m_window ? handleDrag(event) : QWidget::eventFilter(watched, event);
}

bool WindowDrop::handleDrag(QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto& drag = static_cast<QDragMoveEvent&>(*event);
            const bool hasFiles = !droppedFiles(*drag.mimeData()).isEmpty();
            // The files are only read: their source must not treat them as moved.
            drag.setDropAction(Qt::CopyAction);
            drag.setAccepted(hasFiles);
            showFrame(hasFiles);
            return true;
        }
        case QEvent::DragLeave:
            showFrame(false);
            return true;
        case QEvent::Drop: {
            auto& drop = static_cast<QDropEvent&>(*event);
            const QList<QUrl> files = droppedFiles(*drop.mimeData());
            drop.setDropAction(Qt::CopyAction);
            drop.setAccepted(!files.isEmpty());
            showFrame(false);
            if (!files.isEmpty()) {
                QMetaObject::invokeMethod(
                    this, [this, files] { Q_EMIT dropped(files); }, Qt::QueuedConnection);
            }
            return true;
        }
        default:
            return false;
    }
}

void WindowDrop::showFrame(bool isShown) {
    setGeometry(m_window.rect());
    raise();
    setVisible(isShown);
}

void WindowDrop::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintRing(painter, palette(), rect(), 0);
}

}  // namespace quarlin
