#include "check/checked_material.h"

#include "imaging/files/folder_listing.h"
#include "model/normal_output_names.h"
#include "model/output_names.h"

#include <algorithm>
#include <initializer_list>
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

/// The materials that have one of `files` in their set.
template <typename File>
std::set<QString> materialsWith(const QStringList& names, std::initializer_list<File> files) {
    std::set<QString> materials;
    for (const File file : files) {
        const QString suffix = tableRow(file).suffix;
        for (const QString& name : names) {
            if (name.endsWith(suffix) && name.size() > suffix.size()) {
                materials.insert(name.chopped(suffix.size()));
            }
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
    for (const QString& material : materialsWith(names, {MaterialFile::baseColor, MaterialFile::orm})) {
        const OutputNames files{material};
        materials.push_back({.document = {},
                             .name = material,
                             .baseColor = files.baseColor(),
                             .metallicRoughness = files.orm(),
                             .occlusion = files.orm(),
                             .normal = nameIfThere(names, files.normal())});
    }
    for (const QString& material : materialsWith(names, {GeneratedFile::baseColor, GeneratedFile::normal})) {
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
        if (isDocument(name)) {
            hasDocument = true;
            CheckedSet part = readGLTF(folder, name);
            std::move(part.materials.begin(), part.materials.end(), std::back_inserter(set.materials));
            std::move(part.findings.begin(), part.findings.end(), std::back_inserter(set.findings));
            set.embedded.merge(part.embedded);
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

bool hasSet(const QStringList& names) {
    return std::any_of(names.begin(), names.end(), isDocument) || !materialsByNames(names).empty();
}

CheckedSet readSet(const QUrl& folder) {
    try {
        return readSet(folder, namesIn(folder));
    } catch (const std::system_error&) {
        return {{}, {findingOf(FindingKind::unreadableFolder, {})}};
    }
}

}  // namespace quarlin
