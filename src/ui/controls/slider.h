#pragma once

#include "model/setting_range.h"

#include <QSlider>
#include <QString>
#include <QWheelEvent>

#include <functional>

namespace quarlin {

/// The values that a slider offers.
struct ValueRange {
    double minimum = fractionRange.lowest;
    double maximum = fractionRange.highest;
    /// How far an arrow key goes.
    double step = 0.01;
    /// How far a page key goes.
    double page = 0.1;
};

/// A slider over fractional numbers. Qt's slider counts in integers: here they are ticks, so fine that the
/// pointer sets any number of the range.
class Slider : public QSlider {
    Q_OBJECT

public:
    static constexpr int ticksPerUnit = 1'000'000;

    /// `describe` gives the text of a number, for assistive technology.
    Slider(const ValueRange& range, std::function<QString(double)> describe, QWidget* parent = nullptr);

    const ValueRange& range() const { return m_range; }
    double number() const { return static_cast<double>(value()) / ticksPerUnit; }
    QString numberText() const { return m_describe(number()); }

    /// Shows `number`, or the bound next to it, without announcing it as the user's.
    void showNumber(double number);

    /// The part of the slider that is dragged.
    QRect handle() const;

Q_SIGNALS:
    /// The user has changed the number.
    void numberEdited(double number);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    /// The panel around the slider scrolls, not the slider.
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

private:
    ValueRange m_range;
    std::function<QString(double)> m_describe;
};

}  // namespace quarlin
