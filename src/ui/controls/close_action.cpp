#include "ui/controls/close_action.h"

#include <QAction>
#include <QWidget>

namespace quarlin {

using namespace Qt::StringLiterals;

void makeCloseAction(QAction& action, QWidget& window) {
    action.setText(u"Close"_s);
    action.setShortcuts({Qt::Key_Escape, Qt::CTRL | Qt::Key_W});
    QObject::connect(&action, &QAction::triggered, &window, &QWidget::close);
    window.addAction(&action);
}

}  // namespace quarlin
