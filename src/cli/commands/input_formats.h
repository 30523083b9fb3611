#pragma once

#include "model/image_file_type.h"

#include <QString>
#include <QStringList>

namespace quarlin {

/// The sentence of the help that lists the formats of textures.
inline QString inputFormats() {
    QStringList formats = readFormats();
    const QString last = formats.takeLast();
    return u"Textures can be "_s + formats.join(u", "_s) + u" or "_s + last + u" files."_s;
}

}  // namespace quarlin
