#pragma once

#include <QString>

namespace quarlin {

/// `text` as one line that can do no harm to a terminal: control characters, and halves of surrogate pairs,
/// are written as in "\x1b".
QString printable(const QString& text);

}  // namespace quarlin
