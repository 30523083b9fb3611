#pragma once

#include "matching/texture_set.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace quarlin {

// Files that come together: dropped on the window, or given as arguments. A folder stands for the pictures in
// it.

/// What files mean for the PBR Material tool.
struct IncomingMaterial {
    /// The first material; without files if there is none.
    TextureSet set;
    /// What the user should know, a log line each.
    QStringList notes;
    /// Why there is no material, for the user.
    std::optional<QString> failure;
};

/// Matches the files to the slots of a material by their names, as the command line does. A single file whose
/// name matches no slot is a base color.
IncomingMaterial incomingMaterial(const QList<QUrl>& locations);

/// What files mean for the Map Generator tool.
struct IncomingSource {
    /// Empty if there is none.
    QUrl file;
    QStringList notes;
    std::optional<QString> failure;
};

/// The first file that maps can be generated from, as the command line takes them from a folder. A single
/// file is taken whatever its name.
IncomingSource incomingSource(const QList<QUrl>& locations);

}  // namespace quarlin
