#pragma once

#include "ui/controls/slider.h"

#include <QWidget>

namespace quarlin {

class TextLabel;

/// A title, a slider and its value as text. The widths of the title and of the text are fixed, so that the
/// sliders of rows under one another line up.
class SliderRow : public QWidget {
    Q_OBJECT

public:
    /// `format` gives the text shown for a value.
    SliderRow(const QString& title, const ValueRange& range, std::function<QString(double)> format,
              QWidget* parent = nullptr);

    /// A row for a fraction of one, shown as a percentage.
    static SliderRow* percentage(const QString& title, QWidget* parent = nullptr);

    void setValue(double value);

    Slider* slider() const { return m_slider; }
    QString valueLabel() const;

Q_SIGNALS:
    /// The user has moved the slider.
    void valueEdited(double value);

private:
    void showValue();

    Slider* m_slider;
    TextLabel* m_valueLabel;
};

}  // namespace quarlin
