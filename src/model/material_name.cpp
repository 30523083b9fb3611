#include "model/material_name.h"

#include <QChar>
#include <QList>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

bool isAllowed(char32_t scalar) {
    return QChar::isLetterOrNumber(scalar) || QChar::isMark(scalar) || scalar == U'-' || scalar == U'_' ||
           scalar == U' ';
}

}  // namespace

QString safeMaterialName(const QString& name, const QString& fallback) {
    QString cleaned;
    cleaned.reserve(name.size());
    for (const char32_t scalar : name.toUcs4()) {
        cleaned += isAllowed(scalar) ? QString::fromUcs4(&scalar, 1) : u"_"_s;
    }
    cleaned = cleaned.trimmed();
    cleaned.replace(u' ', u'_');
    return cleaned.isEmpty() ? fallback : cleaned;
}

}  // namespace quarlin
