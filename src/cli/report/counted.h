#pragma once

#include <QString>

namespace quarlin {

/// A count with its noun, which takes an "s" unless the count is 1: "1 set", "2 sets".
inline QString counted(int count, const QString& noun) {
    return QString::number(count) + u' ' + noun + (count == 1 ? QString() : QString(u's'));
}

}  // namespace quarlin
