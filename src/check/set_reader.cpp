#include "check/checked_material.h"

#include "imaging/files/folder_listing.h"
#include "model/normal_output_names.h"
#include "model/output_names.h"

#include <algorithm>
#include <set>
#include <system_error>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

QStringList namesIn(const QUrl& folder) {
    QStringList names;
    for (const FolderEntry& entry : listFolder(folder)) {
        names += entry.name;
    }
    return names;
}

/// The materials that have a file with the ending `ofNothing`, the file name of a material without a name.
std::set<QString> materialsWith(const QStringList& names, const QString& ofNothing) {
    std::set<QString> materials;
    for (const QString& name : names) {
        if (name.endsWith(ofNothing) && name.size() > ofNothing.size()) {
            materials.insert(name.chopped(ofNothing.size()));
        }
    }
    return materials;
}

std::optional<QString> nameIfThere(const QStringList& names, const QString& name) {
    return names.contains(name) ? std::optional(name) : std::nullopt;
}

/// The sets that the file names belong to. A material set always has a base color and an ORM image, a
/// generated one a base color and a normal map.
std::vector<CheckedMaterial> materialsByNames(const QStringList& names) {
    std::vector<CheckedMaterial> materials;
    std::set<QString> found = materialsWith(names, OutputNames{}.baseColor());
    found.merge(materialsWith(names, OutputNames{}.orm()));
    for (const QString& material : found) {
        const OutputNames files{material};
        materials.push_back({.document = {},
                             .name = material,
                             .baseColor = files.baseColor(),
                             .metallicRoughness = files.orm(),
                             .occlusion = files.orm(),
                             .normal = nameIfThere(names, files.normal())});
    }
    std::set<QString> generated = materialsWith(names, NormalOutputNames{}.baseColor());
    generated.merge(materialsWith(names, NormalOutputNames{}.normal()));
    for (const QString& material : generated) {
        const NormalOutputNames files{material};
        const auto orm = nameIfThere(names, files.orm());
        materials.push_back({.document = {},
                             .name = material,
                             .baseColor = files.baseColor(),
                             .metallicRoughness = orm,
                             .occlusion = orm,
                             .normal = files.normal()});
    }
    return materials;
}

CheckedSet readSet(const QUrl& folder, const QStringList& names) {
    CheckedSet set;
    bool hasDocument = false;
    for (const QString& name : names) {
        if (name.endsWith(u".gltf"_s, Qt::CaseInsensitive)) {
            hasDocument = true;
            CheckedSet part = readGLTF(folder, name);
            std::move(part.materials.begin(), part.materials.end(), std::back_inserter(set.materials));
            std::move(part.findings.begin(), part.findings.end(), std::back_inserter(set.findings));
        }
    }
    if (hasDocument) {
        return set;
    }
    set.materials = materialsByNames(names);
    for (const CheckedMaterial& material : set.materials) {
        if (!material.metallicRoughness) {
            set.findings.push_back(findingOf(FindingKind::noORM, {}));
        }
    }
    if (set.materials.empty()) {
        set.findings.push_back(findingOf(FindingKind::noSet, {}));
    }
    return set;
}

}  // namespace

CheckedSet readSet(const QUrl& folder) {
    try {
        return readSet(folder, namesIn(folder));
    } catch (const std::system_error&) {
        return {{}, {findingOf(FindingKind::unreadableFolder, {})}};
    }
}

}  // namespace quarlin
