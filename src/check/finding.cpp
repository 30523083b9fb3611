#include "check/finding.h"

namespace quarlin {

using namespace Qt::StringLiterals;

Finding findingOf(FindingKind kind, const QString& file, const QString& detail) {
    QString text = title(kind);
    text[0] = text[0].toUpper();
    return {kind, file, text + (detail.isEmpty() ? QString() : u": "_s + detail) + u'.'};
}

}  // namespace quarlin
