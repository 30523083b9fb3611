#include "ui/window/tool_tab_bar.h"

#include "ui/style/colors.h"
#include "ui/style/metrics.h"
#include "ui/style/painting.h"
#include "ui/style/symbol.h"
#include "ui/style/typography.h"

#include <QPainter>
#include <QStyle>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

constexpr int height = 38;
constexpr int sidePadding = 16;
constexpr int symbolGap = 7;
constexpr int markHeight = 3;

}  // namespace

ToolTabBar::ToolTabBar(QWidget* parent) : QTabBar(parent) {
    setExpanding(false);
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(u"Tools"_s);
}

void ToolTabBar::setTabSymbol(int index, const QString& symbol) {
    setTabData(index, symbol);
    // The symbol is drawn, tinted, from the data; the icon is for callers of `tabIcon`.
    setTabIcon(index, symbolIcon(symbol));
}

QSize ToolTabBar::tabSizeHint(int index) const {
    const QFontMetrics metrics(quarlin::font(TextStyle::headline));
    const QSize label = metrics.size(Qt::TextShowMnemonic, tabText(index));
    return {2 * sidePadding + metrics::symbolSize + symbolGap + label.width(),
            qMax(quarlin::height, label.height() + 18)};
}

void ToolTabBar::paintTab(QPainter& painter, int index) const {
    const bool current = index == currentIndex();
    const QRect area = tabRect(index);
    const bool hovered = area.contains(mapFromGlobal(QCursor::pos())) && underMouse();
    if (hovered && !current) {
        paintSurface(painter, QRectF(area).adjusted(3, 5, -3, -5), metrics::controlRadius,
                     withOpacity(secondaryColor(palette()), 0.1), Qt::transparent);
    }
    const QColor color = current ? primaryColor(palette()) : secondaryColor(palette());
    constexpr int size = metrics::symbolSize;
    const auto placed = [&](const QRect& part) {
        return QStyle::visualRect(layoutDirection(), area, part.translated(area.topLeft()));
    };
    const QRect symbolArea(sidePadding, (area.height() - size) / 2, size, size);
    const int titleLeft = sidePadding + size + symbolGap;
    const QRect titleArea(titleLeft, 0, area.width() - titleLeft - sidePadding + 1, area.height());
    paintSymbol(painter, tabData(index).toString(), placed(symbolArea),
                current ? accentColor(palette()) : color);
    painter.setFont(quarlin::font(TextStyle::headline));
    painter.setPen(color);
    painter.drawText(placed(titleArea), Qt::AlignCenter | Qt::TextShowMnemonic, tabText(index));
    if (current) {
        const QRectF mark(area.left() + sidePadding / 2.0, area.bottom() + 1 - markHeight,
                          area.width() - sidePadding, markHeight);
        paintSurface(painter, mark, markHeight / 2.0, accentColor(palette()), Qt::transparent);
        paintFocusRing(painter, *this, QRectF(area).adjusted(3, 4, -3, -5), metrics::controlRadius);
    }
}

void ToolTabBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (int index = 0; index < count(); ++index) {
        paintTab(painter, index);
    }
}

}  // namespace quarlin
