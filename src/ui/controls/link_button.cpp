#include "ui/controls/link_button.h"

#include "ui/display/plain_tool_tip.h"
#include "ui/style/colors.h"
#include "ui/style/painting.h"
#include "ui/style/typography.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>

namespace quarlin {

namespace {

/// On each side of the text, for the focus ring.
constexpr int sidePadding = 4;
constexpr int verticalPadding = 3;

/// Qt presents a button as a button only.
class LinkAccessible : public QAccessibleWidget {
public:
    explicit LinkAccessible(LinkButton* link) : QAccessibleWidget(link, QAccessible::Link), m_link(*link) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? m_link.text() : QAccessibleWidget::text(kind);
    }
    QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
    void doAction(const QString& action) override {
        if (action == pressAction()) {
            m_link.click();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    LinkButton& m_link;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* link = qobject_cast<LinkButton*>(object);
    return link == nullptr ? nullptr : new LinkAccessible(link);
}

}  // namespace

LinkButton::LinkButton(QWidget* parent) : QAbstractButton(parent) {
    // Qt keeps a list of the factories and takes each of them once.
    QAccessible::installFactory(&makeAccessible);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFont(quarlin::font(TextStyle::caption));
}

QSize LinkButton::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * sidePadding,
            fontMetrics().height() + 2 * verticalPadding};
}

QSize LinkButton::minimumSizeHint() const { return {0, sizeHint().height()}; }

bool LinkButton::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange) {
        setFont(quarlin::font(TextStyle::caption));
        updateGeometry();
    }
    if (event->type() == QEvent::ToolTip) {
        showPlainToolTip(*this, *static_cast<QHelpEvent*>(event), toolTip());
        return true;
    }
    return QAbstractButton::event(event);
}

void LinkButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QAbstractButton::keyPressEvent(event);
    }
}

void LinkButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QFont shown = font();
    shown.setUnderline(underMouse() || hasFocus());
    painter.setFont(shown);
    painter.setPen(underMouse() ? primaryColor(palette()) : secondaryColor(palette()));
    const QRect area = rect().adjusted(sidePadding, 0, -sidePadding, 0);
    painter.drawText(area, static_cast<int>(Qt::AlignVCenter | Qt::AlignRight) | Qt::TextSingleLine,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, area.width()));
    paintFocusRing(painter, *this, rect(), 4);
}

}  // namespace quarlin
