#include "ui/controls/range_control_accessible.h"

#include "ui/controls/range_control.h"
#include "ui/controls/stepper.h"

#include <QAccessible>
#include <QAccessibleValueInterface>
#include <QAccessibleWidget>

namespace quarlin {

namespace {

class RangeControlAccessible : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit RangeControlAccessible(RangeControl* control)
        : QAccessibleWidget(control,
                            qobject_cast<Stepper*>(control) ? QAccessible::SpinBox : QAccessible::Slider),
          m_control(*control) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? m_control.valueText() : QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override { return m_control.value(); }
    void setCurrentValue(const QVariant& value) override { m_control.edit(value.toDouble()); }
    QVariant maximumValue() const override { return m_control.range().maximum; }
    QVariant minimumValue() const override { return m_control.range().minimum; }
    QVariant minimumStepSize() const override { return m_control.range().step; }

private:
    RangeControl& m_control;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* control = qobject_cast<RangeControl*>(object);
    return control ? new RangeControlAccessible(control) : nullptr;
}

}  // namespace

// The factories are a list of the toolkit's own, which keeps each of them once.
void installRangeControlAccessibility() { QAccessible::installFactory(&makeAccessible); }

}  // namespace quarlin
