#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

namespace quarlin {

class PictureView;
class TextLabel;

/// What a preview tile shows.
struct PreviewTileContent {
    QString title;
    QString subtitle;
    QImage image;
};

/// One preview: the picture, square, over its title and a short description. A double click, Enter or its
/// context menu opens it.
class PreviewTile : public QWidget {
    Q_OBJECT

public:
    explicit PreviewTile(const PreviewTileContent& content, QWidget* parent = nullptr);

    void setContent(const PreviewTileContent& content);

    QString title() const;
    QString subtitle() const;
    const QImage& image() const;

Q_SIGNALS:
    /// The user wants to look at the picture closely.
    void opened();

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    PictureView* m_image;
    TextLabel* m_title;
    TextLabel* m_subtitle;
};

}  // namespace quarlin
