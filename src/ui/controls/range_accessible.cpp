#include "ui/controls/range_accessible.h"

#include "ui/controls/slider.h"
#include "ui/controls/stepper.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

#include <functional>
#include <utility>

namespace quarlin {

namespace {

/// Presents a control whose integer value is `ticksPerUnit` times what the user sees.
class RangeAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    RangeAccessible(QAbstractSlider* control, QAccessible::Role role, double ticksPerUnit,
                    std::function<QString()> valueText)
        : QAccessibleWidget(control, role),
          m_control(*control),
          m_ticksPerUnit(ticksPerUnit),
          m_valueText(std::move(valueText)) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? m_valueText() : QAccessibleWidget::text(kind);
    }

    QStringList actionNames() const override {
        const QStringList steps{increaseAction(), decreaseAction()};
        return (m_control.isEnabled() ? steps : QStringList()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == increaseAction()) {
            m_control.triggerAction(QAbstractSlider::SliderSingleStepAdd);
        } else if (action == decreaseAction()) {
            m_control.triggerAction(QAbstractSlider::SliderSingleStepSub);
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

    QVariant currentValue() const override { return m_control.value() / m_ticksPerUnit; }
    void setCurrentValue(const QVariant& value) override {
        m_control.setValue(qRound(value.toDouble() * m_ticksPerUnit));
    }
    QVariant maximumValue() const override { return m_control.maximum() / m_ticksPerUnit; }
    QVariant minimumValue() const override { return m_control.minimum() / m_ticksPerUnit; }
    QVariant minimumStepSize() const override { return m_control.singleStep() / m_ticksPerUnit; }

private:
    QAbstractSlider& m_control;
    double m_ticksPerUnit;
    std::function<QString()> m_valueText;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    if (auto* slider = qobject_cast<Slider*>(object)) {
        return new RangeAccessible(slider, QAccessible::Slider, Slider::ticksPerUnit,
                                   [slider] { return slider->numberText(); });
    }
    if (auto* stepper = qobject_cast<Stepper*>(object)) {
        return new RangeAccessible(stepper, QAccessible::SpinBox, 1,
                                   [stepper] { return QString::number(stepper->value()); });
    }
    return nullptr;
}

}  // namespace

// Qt keeps a list of the factories and takes each of them once.
void installRangeAccessibility() { QAccessible::installFactory(&makeAccessible); }

}  // namespace quarlin
