#include "material_name.h"

#include <QChar>
#include <QStringIterator>

namespace quarlin {

namespace {

bool isAllowed(char32_t scalar) {
    return QChar::isLetterOrNumber(scalar) || QChar::isMark(scalar) || scalar == U'-' || scalar == U'_' ||
           scalar == U' ';
}

}  // namespace

QString safeMaterialName(const QString& name, const QString& fallback) {
    QString cleaned;
    cleaned.reserve(name.size());
    QStringIterator scalars(name);
    while (scalars.hasNext()) {
        const char32_t scalar = scalars.next();
        cleaned += isAllowed(scalar) ? QString::fromUcs4(&scalar, 1) : QStringLiteral("_");
    }
    cleaned = cleaned.trimmed();
    cleaned.replace(u' ', u'_');
    return cleaned.isEmpty() ? fallback : cleaned;
}

}  // namespace quarlin
