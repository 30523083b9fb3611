#include "ui/controls/stepper_row.h"

#include "ui/accessibility/accessible_role.h"
#include "ui/controls/stepper.h"
#include "ui/display/text_label.h"

#include <QHBoxLayout>

namespace quarlin {

StepperRow::StepperRow(const QString& title, int minimum, int maximum, QWidget* parent) : QWidget(parent) {
    // Qt would name the row after the box that it is in.
    presentAs(*this, QAccessible::Client, title);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(new TextLabel(title, TextStyle::body));
    row->addStretch();

    m_valueLabel = new TextLabel({}, TextStyle::callout, TextWeight::secondary);
    row->addWidget(m_valueLabel);

    m_stepper = new Stepper(minimum, maximum);
    m_stepper->setAccessibleName(title);
    row->addWidget(m_stepper);

    connect(m_stepper, &Stepper::valueChanged, this, [this](int value) {
        showValue();
        Q_EMIT valueEdited(value);
    });
    showValue();
}

void StepperRow::setValue(int value) {
    m_stepper->showValue(value);
    showValue();
}

QString StepperRow::valueLabel() const { return m_valueLabel->text(); }

void StepperRow::showValue() { m_valueLabel->setText(QString::number(m_stepper->value())); }

}  // namespace quarlin
