#include "ui/display/plain_tool_tip.h"

#include <QHelpEvent>
#include <QStringList>
#include <QTextLayout>
#include <QToolTip>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// About sixty letters.
constexpr double lineWidth = 360;

QStringList linesOf(const QString& text) {
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextLayout layout(text, QToolTip::font());
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(lineWidth);
        lines << text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

}  // namespace

void showPlainToolTip(QWidget& widget, const QHelpEvent& event, const QString& text) {
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n')) {
        lines += linesOf(paragraph);
    }
    // Qt wraps a tooltip itself as well, but to a width that depends on the length of the text.
    const QString escaped = lines.join(u'\n').toHtmlEscaped().replace(u'\n', u"<br/>"_s);
    QToolTip::showText(event.globalPos(), u"<p style='white-space:pre'>"_s + escaped + u"</p>"_s, &widget);
}

}  // namespace quarlin
