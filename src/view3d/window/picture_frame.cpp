#include "view3d/window/picture_frame.h"

#include "ui/style/painting.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace quarlin {

namespace {

constexpr int ringWidth = 3;

}  // namespace

PictureFrame::PictureFrame(QWidget* picture) : m_picture(picture) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(ringWidth, ringWidth, ringWidth, ringWidth);
    layout->addWidget(picture);
    picture->installEventFilter(this);
}

bool PictureFrame::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) {
        update();
    }
    return false;
}

void PictureFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintFocusRing(painter, *m_picture, rect(), 0);
}

}  // namespace quarlin
