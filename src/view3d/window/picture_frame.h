#pragma once

#include <QWidget>

namespace quarlin {

/// Holds the picture of the scene and draws a ring around it while it is operated with the keyboard.
class PictureFrame : public QWidget {
    Q_OBJECT

public:
    explicit PictureFrame(QWidget* picture);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* m_picture;
};

}  // namespace quarlin
