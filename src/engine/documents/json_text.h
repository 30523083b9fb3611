#pragma once

#include <QByteArray>
#include <QJsonValue>

namespace quarlin {

/// `value` as UTF-8 JSON text: indented by two spaces, `"key" : value`, the keys of every object in ascending
/// order, slashes escaped, no line feed at the end.
QByteArray jsonText(const QJsonValue& value);

}  // namespace quarlin
