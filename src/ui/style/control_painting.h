#pragma once

#include <QRect>
#include <QSize>
#include <QStyle>

class QPainter;
class QStyleOptionButton;
class QStyleOptionFrame;
class QStyleOptionGroupBox;
class QStyleOptionSlider;
class QStyleOptionTab;

namespace quarlin {

// What each kind of control looks like, and where its parts are. Rectangles are in the coordinates of the
// option's.

/// A button: flat ones have no frame until they are pointed at, the default one is filled with the accent
/// color.
void paintButton(QPainter& painter, const QStyleOptionButton& button);
QSize buttonSize(const QStyleOptionButton& button);

void paintCheckBox(QPainter& painter, const QStyleOptionButton& box);
QSize checkBoxSize(const QStyleOptionButton& box);

/// A tab with its symbol, drawn from the icon's name. A bar in the accent color is under the current tab.
void paintTab(QPainter& painter, const QStyleOptionTab& tab);
QSize tabSize(const QStyleOptionTab& tab);

/// A horizontal slider. Its handle is the knob with the room around it that the focus ring takes, so that the
/// groove is as wide as the slider.
void paintSlider(QPainter& painter, const QStyleOptionSlider& slider);
QRect sliderHandle(const QStyleOptionSlider& slider);

/// A slim scroll bar, transparent but for its handle, which grows when it is pointed at.
void paintScrollBar(QPainter& painter, const QStyleOptionSlider& bar);
QRect scrollBarPart(const QStyleOptionSlider& bar, QStyle::SubControl part);

void paintField(QPainter& painter, const QStyleOptionFrame& field);
QRect fieldContents(const QStyleOptionFrame& field);

/// A box with its title above, if it has one.
void paintGroupBox(QPainter& painter, const QStyleOptionGroupBox& box);
QRect groupBoxPart(const QStyleOptionGroupBox& box, QStyle::SubControl part);

}  // namespace quarlin
