#pragma once

#include <QWidget>

namespace quarlin {

class SegmentedPicker;
class TextLabel;
class ViewerActions;

/// The bar at the top of the viewer: the name of the map and the ways to zoom over the ways to look at it.
class ViewerBar : public QWidget {
    Q_OBJECT

public:
    /// `actions` must outlive the bar.
    explicit ViewerBar(ViewerActions& actions, QWidget* parent = nullptr);

    void setMap(const QString& title, const QString& subtitle);
    void setScale(double scale);
    /// Whether the map has a green to flip.
    void setFlippable(bool isFlippable);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QWidget* nameRow(ViewerActions& actions);
    QWidget* lookRow(ViewerActions& actions);
    SegmentedPicker* channelPicker(ViewerActions& actions);
    QWidget* flipControl(ViewerActions& actions);

    TextLabel* m_title;
    TextLabel* m_subtitle;
    TextLabel* m_scale;
    QWidget* m_flip;
};

}  // namespace quarlin
