#include "matching/texture_set.h"

#include "imaging/files/file_names.h"
#include "matching/texture_name.h"

#include <algorithm>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// A file and what its name says.
struct NamedFile {
    QString path;
    TextureName name;
};

/// The files of one material, and its key.
struct Group {
    QString key;
    std::vector<NamedFile> files;
};

QString fileName(const QString& path) { return lastPathComponent(QUrl::fromLocalFile(path)); }

Group& groupOf(std::vector<Group>& groups, const QString& material) {
    const QString key = materialKey(material);
    const auto found =
        std::find_if(groups.begin(), groups.end(), [&](const Group& group) { return group.key == key; });
    return found == groups.end() ? groups.emplace_back(Group{key, {}}) : *found;
}

/// Removes the DirectX normal maps from a group that has one for OpenGL.
void preferOpenGL(Group& group, std::vector<LeftOutFile>& leftOut) {
    const auto openGL = std::find_if(group.files.begin(), group.files.end(),
                                     [](const NamedFile& file) { return file.name.isOpenGL; });
    if (openGL == group.files.end()) {
        return;
    }
    const QString reason = fileName(openGL->path) + u" is used instead, which is for OpenGL"_s;
    std::erase_if(group.files, [&](const NamedFile& file) {
        if (file.name.isDirectX) {
            leftOut.push_back({file.path, reason});
        }
        return file.name.isDirectX;
    });
}

TextureSet setOf(const Group& group, const QString& folderName) {
    TextureSet set;
    for (const auto& [path, name] : group.files) {
        const auto [place, isFirst] = set.files.emplace(name.slot, path);
        if (!isFirst) {
            set.ambiguity = fileName(place->second) + u" and "_s + fileName(path) + u" are both for "_s +
                            title(name.slot);
            continue;
        }
        set.roughnessIsGloss |= name.isGloss;
        set.normalIsDirectX |= name.isDirectX;
        // The material is spelled as in the name of the base color, as it is for a single set.
        if (set.material.isEmpty() || name.slot == TextureSlotKind::baseColor) {
            set.material = name.material;
        }
    }
    if (set.material.isEmpty()) {
        set.material = folderName;
    }
    return set;
}

}  // namespace

MatchedTextures matchTextures(const TextureFolder& folder) {
    MatchedTextures matched;
    std::vector<Group> groups;
    for (const QString& path : folder.files) {
        if (const auto name = readTextureName(fileStem(QUrl::fromLocalFile(path)))) {
            groupOf(groups, name->material).files.push_back({path, *name});
        } else {
            matched.leftOut.push_back({path, u"its name matches no slot"_s});
        }
    }
    for (Group& group : groups) {
        preferOpenGL(group, matched.leftOut);
        matched.sets.push_back(setOf(group, fileName(folder.path)));
    }
    return matched;
}

}  // namespace quarlin
