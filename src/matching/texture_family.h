#pragma once

#include "matching/texture_files.h"
#include "matching/texture_name.h"

#include <vector>

namespace quarlin {

/// A picture of a folder and what its name says.
struct NamedFile {
    /// Absolute.
    QString path;
    /// In lower case.
    QString extension;
    /// Whether files of this format can be read.
    bool isRead = true;
    TextureName name;
};

/// A file as part of a material.
struct FamilyMember {
    NamedFile file;
    MapKind kind = MapKind::baseColor;
    /// Whether the name says what the file is; a base color may be named like the material alone.
    bool isNamed = true;
};

/// The files of one material.
struct TextureFamily {
    /// The material as the first file spells it; empty if the names are only those of maps.
    QString material;
    std::vector<FamilyMember> members;
};

/// The materials of a folder, in the order of their first files, and the files that belong to none.
struct TextureFamilies {
    std::vector<TextureFamily> families;
    std::vector<NamedFile> others;
};

/// Groups the files of a folder by material.
///
/// A letter or an ambiguous word counts only if the other files of the material speak for it: an ambiguous
/// word beside a clear one, an ambiguous one of another kind or a file named like the material; a letter
/// beside those, or if one of the letters is N. A file that is named like the material, without any map, is
/// its base color. Numbers after a map are variants if the material also has maps without one, and part of
/// the material's name otherwise.
TextureFamilies groupTextures(const TextureFolder& folder, const MapWords& words);

}  // namespace quarlin
