#pragma once

#include <QString>
#include <QStringList>

namespace quarlin {

/// The end of a sentence that suggests the name which is most like `typed`; empty if none of `names` is.
QString suggestion(const QString& typed, const QStringList& names);

}  // namespace quarlin
