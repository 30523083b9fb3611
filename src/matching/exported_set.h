#pragma once

#include <QString>
#include <QStringList>

namespace quarlin {

/// Whether `folder`, an absolute path that contains files of these names, is a set that Quarlin exported: its
/// folder has the material's name, and in it are the base color and either the notes or a .gltf that Quarlin
/// wrote. A set that was exported with neither can't be told from one of another program.
bool isExportedSet(const QString& folder, const QStringList& names);

}  // namespace quarlin
