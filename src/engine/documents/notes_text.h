#pragma once

#include "model/set_file.h"

#include <QString>
#include <QStringList>

namespace quarlin {

/// How the notes answer whether a setting is on.
inline QString yesOrNo(bool value) {
    using namespace Qt::StringLiterals;
    return value ? u"yes"_s : u"no"_s;
}

/// The lines of the notes on the files of a set, in writing order: "TITLE: NAME", or "TITLE: not exported"
/// for a file for which `isWritten` is false. `names[file]` is the name of a file.
template <typename File, typename Names, typename IsWritten>
QString fileLines(const Names& names, const IsWritten& isWritten) {
    using namespace Qt::StringLiterals;
    QStringList lines;
    for (const File file : allCases<File>()) {
        if (const QString name = title(file); !name.isEmpty()) {
            lines += name + u": "_s + (isWritten(file) ? names[file] : u"not exported"_s);
        }
    }
    return lines.join(u'\n');
}

}  // namespace quarlin
