#pragma once

#include <QString>

namespace quarlin {

/// The name by which the program is called.
inline QString programName() {
    using namespace Qt::StringLiterals;
    return u"quarlin-cli"_s;
}

}  // namespace quarlin
