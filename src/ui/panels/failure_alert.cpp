#include "ui/panels/failure_alert.h"

#include "ui/accessibility/accessible_role.h"

#include <QAccessible>

namespace quarlin {

FailureAlert::FailureAlert(QWidget* parent) : QWidget(parent) {
    presentAs(*this, QAccessible::AlertMessage, {});
    setAttribute(Qt::WA_TransparentForMouseEvents);
    // Something that is shown must have a size.
    setGeometry(0, 0, 1, 1);
    hide();
}

void FailureAlert::announce(const QString& message) {
    // Screen readers of some systems read an alert when it appears, those of others when they get the event.
    withdraw();
    setAccessibleName(message);
    show();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void FailureAlert::withdraw() { hide(); }

}  // namespace quarlin
