#include "ui/display/plain_tool_tip.h"

#include <QHelpEvent>
#include <QTextDocument>
#include <QToolTip>

namespace quarlin {

void showPlainToolTip(QWidget& widget, const QHelpEvent& event, const QString& text) {
    QToolTip::showText(event.globalPos(), Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal), &widget);
}

}  // namespace quarlin
