#include "cli/base/printable.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QString escaped(char16_t unit) {
    switch (unit) {
        case u'\n':
            return u"\\n"_s;
        case u'\r':
            return u"\\r"_s;
        case u'\t':
            return u"\\t"_s;
        default:
            break;
    }
    constexpr char16_t largestByte = 0xff;
    const int digits = unit > largestByte ? 4 : 2;
    return (unit > largestByte ? u"\\u"_s : u"\\x"_s) +
           QString::number(unit, 16).rightJustified(digits, u'0');
}

/// Control characters, the separators of lines and paragraphs, and marks that change the direction of
/// writing.
bool isHarmful(QChar character) {
    const char16_t unit = character.unicode();
    return character.category() == QChar::Other_Control || unit == 0x2028 || unit == 0x2029 ||
           (unit >= 0x202a && unit <= 0x202e) || (unit >= 0x2066 && unit <= 0x2069);
}

}  // namespace

QString printable(const QString& text) {
    QString result;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const QChar unit = text[index];
        const bool isPair =
            unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate();
        if (isPair) {
            result += unit;
            result += text[++index];
        } else if (isHarmful(unit) || unit.isSurrogate()) {
            result += escaped(unit.unicode());
        } else {
            result += unit;
        }
    }
    return result;
}

}  // namespace quarlin
