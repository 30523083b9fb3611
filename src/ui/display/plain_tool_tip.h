#pragma once

#include <QString>

class QHelpEvent;
class QWidget;

namespace quarlin {

/// Shows `text` as the tooltip of `widget`, wrapped to a readable width and never interpreted as markup.
void showPlainToolTip(QWidget& widget, const QHelpEvent& event, const QString& text);

}  // namespace quarlin
