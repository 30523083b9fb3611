#include "ui/controls/name_field.h"

#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>

namespace quarlin {

using namespace Qt::StringLiterals;

NameField::NameField(QWidget* parent) : QLineEdit(parent) {
    setPlaceholderText(u"Name"_s);
    setAccessibleName(u"Name"_s);
    setMinimumHeight(metrics::controlHeight);
    setTextMargins(6, 0, 6, 0);
    // The field is painted here, with rounded corners; what the toolkit fills in behind the text must not
    // show.
    setFrame(false);
    QPalette colors;
    colors.setColor(QPalette::Base, Qt::transparent);
    setPalette(colors);
}

void NameField::showName(const QString& name) {
    if (text() != name) {
        setText(name);
    }
}

bool NameField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        // Taking a word back while typing must never reach a menu entry of the same keys.
        if (key->matches(QKeySequence::DeleteStartOfWord) || key->matches(QKeySequence::DeleteEndOfWord)) {
            key->accept();
            return true;
        }
        // Some desktops bind this to a cursor movement that the End key makes as well; the menu has it here.
        if (key->keyCombination() == (Qt::CTRL | Qt::Key_E)) {
            key->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

void NameField::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        const QColor secondary = secondaryColor(palette());
        paintSurface(painter, rect(), metrics::controlRadius,
                     QApplication::palette().color(QPalette::Active, QPalette::Base),
                     withOpacity(secondary, 0.4));
    }
    QLineEdit::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(this);
        paintRing(painter, *this, rect(), metrics::controlRadius);
    }
}

}  // namespace quarlin
