#pragma once

#include <QWidget>

namespace quarlin {

class Stepper;
class TextLabel;

/// A title, the value as a plain integer, and the arrows that step it.
class StepperRow : public QWidget {
    Q_OBJECT

public:
    StepperRow(const QString& title, int minimum, int maximum, QWidget* parent = nullptr);

    void setValue(int value);

    Stepper* stepper() const { return m_stepper; }
    QString valueLabel() const;

Q_SIGNALS:
    /// The user has stepped the value.
    void valueEdited(int value);

private:
    void showValue();

    Stepper* m_stepper;
    TextLabel* m_valueLabel;
};

}  // namespace quarlin
