#include "model/formatters.h"

#include <QLocale>

#include <unicode/numfmt.h>

#include <array>
#include <charconv>
#include <limits>
#include <memory>

namespace quarlin::Formatters {

namespace {

/// The shared formatter of this thread, made on first use and again when the locale has changed.
icu::NumberFormat* percent() {
    thread_local QString tag;
    thread_local std::unique_ptr<icu::NumberFormat> format;
    if (const QString current = QLocale().bcp47Name(); !format || current != tag) {
        UErrorCode status = U_ZERO_ERROR;
        const auto locale = icu::Locale::forLanguageTag(current.toStdString(), status);
        format.reset(icu::NumberFormat::createPercentInstance(locale, status));
        if (U_FAILURE(status) != 0 || !format) {
            format.reset();
            return nullptr;
        }
        format->setMinimumFractionDigits(0);
        format->setMaximumFractionDigits(0);
        format->setRoundingMode(icu::NumberFormat::kRoundHalfEven);
        tag = current;
    }
    return format.get();
}

}  // namespace

QString percentLabel(double value) {
    icu::UnicodeString text;
    if (const icu::NumberFormat* format = percent()) {
        format->format(value, text);
    }
    if (text.isEmpty()) {
        return QString::number(static_cast<qint64>(value * 100)) + u'%';
    }
    return QString::fromUtf16(text.getBuffer(), text.length());
}

QString decimalLabel(double value, int decimals) {
    // Qt's own formatting rounds ties up.
    constexpr std::size_t longest = std::numeric_limits<double>::max_exponent10 + 32;
    std::array<char, longest> text{};
    const auto written =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return QString::fromLatin1(text.data(), written.ptr - text.data());
}

}  // namespace quarlin::Formatters
