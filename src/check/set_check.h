#pragma once

#include "check/finding.h"

#include <QUrl>

#include <vector>

namespace quarlin {

/// The longest inventory name that Second Life keeps, in bytes of UTF-8.
inline constexpr qsizetype longestInventoryName = 63;

/// The longest side, in pixels, that the Second Life viewer uploads. It scales larger images down.
inline constexpr std::int64_t longestSide = 2048;

/// Reads an exported set back as an uploader would, and returns what would go wrong on upload: first the
/// findings on the documents, then those on each material. `location` is the folder of the set, or a .gltf or
/// .glb.
Findings checkSet(const QUrl& location);

/// The folders with sets at or below `folder`, sorted by path; also those that can't be read. Hidden folders
/// and links to folders are skipped.
std::vector<QUrl> findSets(const QUrl& folder);

}  // namespace quarlin
