#include "matching/exported_set.h"

#include "imaging/files/file_names.h"
#include "model/normal_output_names.h"
#include "model/output_names.h"

#include <QFile>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// Whether the beginning of a .gltf, which holds the object "asset" in any file of Quarlin, names Quarlin.
bool isOurGLTF(const QString& path) {
    constexpr qint64 enough = 4096;
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(enough).contains("\"VOREK TECH Quarlin\"");
}

template <typename Names>
bool isSet(const Names& files, const QString& folder, const QStringList& names) {
    return names.contains(files.baseColor()) &&
           (names.contains(files.notes()) ||
            (names.contains(files.gltf()) && isOurGLTF(folder + u'/' + files.gltf())));
}

}  // namespace

bool isExportedSet(const QString& folder, const QStringList& names) {
    const QString material = lastPathComponent(QUrl::fromLocalFile(folder));
    return isSet(OutputNames{material}, folder, names) || isSet(NormalOutputNames{material}, folder, names);
}

}  // namespace quarlin
