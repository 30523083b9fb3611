#pragma once

#include "model/setting_range.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace quarlin {

/// The values that a control offers.
struct ValueRange {
    double minimum = fractionRange.lowest;
    double maximum = fractionRange.highest;
    /// How far an arrow key goes.
    double step = 0.01;
    /// How far a page key goes.
    double page = 0.1;
};

/// A control for one number in a range, which the keyboard can move: arrow keys by a step, page keys by a
/// page, Home and End to the bounds. What it looks like is up to the classes derived from it.
class RangeControl : public QWidget {
    Q_OBJECT

public:
    const ValueRange& range() const { return m_range; }
    double value() const { return m_value; }

    /// Shows `value`, without announcing it as the user's. A value outside the range is shown at its bound.
    void setValue(double value);

    /// Sets the value as the user would, within the range, and announces it.
    void edit(double value);

    /// How assistive technology reads the value out.
    QString valueText() const { return m_describe(m_value); }

Q_SIGNALS:
    /// The user has changed the value.
    void valueEdited(double value);

protected:
    RangeControl(const ValueRange& range, std::function<QString(double)> describe, QWidget* parent);

    void keyPressEvent(QKeyEvent* event) override;

private:
    void change(double value);

    ValueRange m_range;
    double m_value;
    std::function<QString(double)> m_describe;
};

}  // namespace quarlin
