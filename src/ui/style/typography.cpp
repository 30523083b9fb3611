#include "ui/style/typography.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>

namespace quarlin {

namespace {

/// No text is smaller, in pixels: below it letters run into each other.
constexpr int leastPixelSize = 11;

/// The size of the body step, which the ratios refer to.
constexpr double bodySize = 13;

double size(TextStyle style) {
    switch (style) {
        case TextStyle::title3Bold:
        case TextStyle::title3:
            return 15;
        case TextStyle::headline:
        case TextStyle::body:
            return bodySize;
        case TextStyle::callout:
            return 12;
        case TextStyle::caption:
        case TextStyle::monospacedCaption:
            return 10;
    }
    return bodySize;
}

QFont::Weight weight(TextStyle style) {
    switch (style) {
        case TextStyle::title3Bold:
            return QFont::Bold;
        case TextStyle::title3:
        case TextStyle::headline:
            return QFont::DemiBold;
        default:
            return QFont::Normal;
    }
}

}  // namespace

QFont font(TextStyle style) {
    const QFont base = QApplication::font();
    QFont result = base;
    if (style == TextStyle::monospacedCaption) {
        result.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
        result.setStyleHint(QFont::Monospace);
    }
    const double ratio = size(style) / bodySize;
    if (base.pixelSize() > 0) {
        result.setPixelSize(std::max(leastPixelSize, qRound(base.pixelSize() * ratio)));
    } else {
        result.setPointSizeF(base.pointSizeF() * ratio);
        if (QFontInfo(result).pixelSize() < leastPixelSize) {
            result.setPixelSize(leastPixelSize);
        }
    }
    result.setWeight(weight(style));
    return result;
}

int textFrame(int length) {
    const double ratio = QFontInfo(QApplication::font()).pixelSize() / bodySize;
    return qRound(length * std::max(1.0, ratio));
}

}  // namespace quarlin
