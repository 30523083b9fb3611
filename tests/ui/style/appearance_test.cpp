#include "contrast.h"
#include "model/texture_slot_kind.h"
#include "ui/display/plain_tool_tip.h"
#include "ui/display/symbol_view.h"
#include "ui/display/text_label.h"
#include "ui/panels/log_view.h"
#include "ui/style/colors.h"
#include "ui/style/symbol.h"
#include "ui/style/typography.h"
#include "view_fixture.h"

#include <QDir>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

using namespace Qt::StringLiterals;

using namespace quarlin;
using namespace quarlin::fixtures;

namespace {

QImage drawn(const QString& symbol, int size, const QColor& color) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintSymbol(painter, symbol, image.rect(), color);
    return image;
}

bool isEmpty(const QImage& image) {
    QImage nothing(image.size(), image.format());
    nothing.fill(Qt::transparent);
    return image == nothing;
}

TEST(Symbol, ExistsForEverySlot) {
    for (const TextureSlotKind kind : allCases<TextureSlotKind>()) {
        EXPECT_FALSE(isEmpty(drawn(systemImage(kind), 32, Qt::black))) << rawValue(kind).toStdString();
    }
}

TEST(Symbol, IsDrawnInTheGivenColorAlone) {
    const QDir icons(u":/icons"_s);
    ASSERT_FALSE(icons.entryList().isEmpty());
    for (const QString& file : icons.entryList()) {
        const QImage image = drawn(file.chopped(4), 32, QColor(200, 20, 90));
        EXPECT_FALSE(isEmpty(image)) << file.toStdString();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) == 255) {
                    ASSERT_EQ(image.pixel(x, y), qRgb(200, 20, 90)) << file.toStdString();
                }
            }
        }
    }
}

TEST(Symbol, IsAsSharpAsTheDevice) {
    // At twice the scale as many pixels are drawn as for a symbol of twice the size.
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintSymbol(painter, u"trash"_s, QRectF(0, 0, 32, 32), Qt::black);
    painter.end();
    image.setDevicePixelRatio(1);
    EXPECT_EQ(image, drawn(u"trash"_s, 64, Qt::black));
}

TEST(Symbol, FollowsThePaletteAsAnIcon) {
    const QIcon icon = symbolIcon(u"plus"_s);
    const QImage light = icon.pixmap(16, 16).toImage();
    useDarkPalette();
    const QImage dark = icon.pixmap(16, 16).toImage();
    useLightPalette();
    EXPECT_NE(light, dark);
    EXPECT_NE(icon.pixmap(16, 16, QIcon::Disabled).toImage(), light);
}

TEST(Typography, StepsAreRatiosOfTheApplicationsFont) {
    EXPECT_EQ(font(TextStyle::title3).pixelSize(), 15);
    EXPECT_EQ(font(TextStyle::headline).pixelSize(), 13);
    EXPECT_EQ(font(TextStyle::body).pixelSize(), 13);
    EXPECT_EQ(font(TextStyle::callout).pixelSize(), 12);
    EXPECT_EQ(font(TextStyle::caption).pixelSize(), 11);
    EXPECT_EQ(font(TextStyle::title3).weight(), QFont::DemiBold);
    EXPECT_EQ(font(TextStyle::title3Bold).weight(), QFont::Bold);
    EXPECT_EQ(font(TextStyle::headline).weight(), QFont::DemiBold);
    EXPECT_TRUE(QFontInfo(font(TextStyle::monospacedCaption)).fixedPitch());
}

TEST(Typography, StaysReadable) {
    const QFont before = QApplication::font();
    QFont small = before;
    small.setPixelSize(12);
    QApplication::setFont(small);
    EXPECT_EQ(font(TextStyle::caption).pixelSize(), 11);
    EXPECT_EQ(font(TextStyle::monospacedCaption).pixelSize(), 11);
    small.setPointSizeF(7);
    QApplication::setFont(small);
    EXPECT_GE(QFontInfo(font(TextStyle::caption)).pixelSize(), 11);
    EXPECT_GE(QFontInfo(font(TextStyle::monospacedCaption)).pixelSize(), 11);
    QApplication::setFont(before);
}

TEST(Typography, FollowsALargerApplicationFont) {
    TextLabel label(u"x"_s, TextStyle::title3);
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPixelSize(26);
    QApplication::setFont(larger);
    settle();
    EXPECT_EQ(font(TextStyle::title3).pixelSize(), 30);
    EXPECT_EQ(label.font().pixelSize(), 30);
    EXPECT_EQ(textFrame(76), 152);
    QApplication::setFont(before);
    settle();
    EXPECT_EQ(label.font().pixelSize(), 15);
    EXPECT_EQ(textFrame(76), 76);
}

TEST(Colors, SecondaryTextIsReadableInLightAndInDark) {
    for (const bool isDark : {false, true}) {
        isDark ? useDarkPalette() : useLightPalette();
        const QPalette palette = QApplication::palette();
        EXPECT_GE(contrast(secondaryColor(palette), palette.color(QPalette::Window)), 4.5) << isDark;
    }
    useLightPalette();
}

TEST(Appearance, FollowsAPaletteThatChangesWhileRunning) {
    auto* label = new TextLabel(u"text"_s, TextStyle::body, TextWeight::secondary);
    ViewWindow window(label, QSize(100, 30));
    const QImage light = label->grab().toImage();
    useDarkPalette();
    settle();
    const QImage dark = label->grab().toImage();
    useLightPalette();
    settle();
    EXPECT_LT(qGray(dark.pixel(99, 0)), 100);
    EXPECT_GT(qGray(light.pixel(99, 0)), 200);
    EXPECT_EQ(label->grab().toImage(), light);
}

TEST(Appearance, OfTheLogFollowsThePaletteToo) {
    auto* log = new LogView;
    ViewWindow window(log, QSize(200, 30));
    log->setLines({u"line"_s});
    const QColor light = log->palette().color(QPalette::Text);
    useDarkPalette();
    settle();
    EXPECT_EQ(log->palette().color(QPalette::Text), secondaryColor(QApplication::palette()));
    useLightPalette();
    settle();
    EXPECT_EQ(log->palette().color(QPalette::Text), light);
}

TEST(TextLabel, ShowsTheWholeTextAsTooltipWhenItIsCut) {
    auto* label = new TextLabel(QString(100, u'w') + u"<b>.png"_s, TextStyle::callout);
    label->setElided(true);
    ViewWindow window(label, QSize(120, 20));
    QHelpEvent help(QEvent::ToolTip, {5, 5}, label->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(label, &help);
    EXPECT_TRUE(QToolTip::isVisible());
    // Not interpreted as markup: the tooltip shows the angle brackets of the name.
    EXPECT_TRUE(QToolTip::text().contains(u"&lt;b&gt;"_s)) << QToolTip::text().toStdString();
    QToolTip::hideText();
}

TEST(ToolTip, IsReadableHoweverLongItsTextIs) {
    QWidget owner;
    QHelpEvent help(QEvent::ToolTip, {5, 5}, QPoint(5, 5));
    for (const int words : {25, 100}) {
        showPlainToolTip(owner, help, u"reads well "_s.repeated(words / 2));
        const QWidget* shown = nullptr;
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (window->inherits("QTipLabel") && window->isVisible()) {
                shown = window;
            }
        }
        ASSERT_NE(shown, nullptr);
        EXPECT_GE(shown->width(), 300) << words;
        EXPECT_LE(shown->width(), 400) << words;
        QToolTip::hideText();
        settle();
    }
}

bool hasToolTip(QWidget& label) {
    QHelpEvent help(QEvent::ToolTip, {5, 5}, label.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&label, &help);
    return QToolTip::isVisible();
}

TEST(TextLabel, IsDrawnNarrowerRatherThanShortened) {
    auto* label = new TextLabel(u"R AO / G Rough / B Metal"_s, TextStyle::caption);
    label->setElided(true);
    ViewWindow window(label, QSize(400, 20));
    const int whole = label->fontMetrics().horizontalAdvance(label->text());
    const auto inkAt = [&](double width) {
        label->resize(qCeil(whole * width), 20);
        const QImage picture = label->grab().toImage().convertToFormat(QImage::Format_RGB32);
        int right = 0;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y) {
                right = qGray(picture.pixel(x, y)) < 128 ? x : right;
            }
        }
        return right;
    };
    const int ink = inkAt(1.5);
    EXPECT_NEAR(inkAt(0.92), ink * 0.92, 1.5);
    EXPECT_FALSE(hasToolTip(*label));
    inkAt(0.85);
    EXPECT_TRUE(hasToolTip(*label));
    QToolTip::hideText();
}

TEST(TextLabel, HasNoTooltipWhenItFits) {
    auto* label = new TextLabel(u"fits"_s, TextStyle::callout);
    ViewWindow window(label, QSize(120, 20));
    QHelpEvent help(QEvent::ToolTip, {5, 5}, label->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(label, &help);
    EXPECT_NE(QToolTip::text(), u"fits"_s);
}

}  // namespace
