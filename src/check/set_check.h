#pragma once

#include "check/finding.h"

#include <QUrl>

namespace quarlin {

/// The longest inventory name that Second Life keeps, in bytes of UTF-8.
inline constexpr qsizetype longestInventoryName = 63;

/// The longest side, in pixels, that the Second Life viewer uploads. It scales larger images down.
inline constexpr std::int64_t longestSide = 2048;

/// Reads the exported set in `folder` back as an uploader would, and returns what would go wrong on upload:
/// first the findings on the documents, then those on each material.
Findings checkSet(const QUrl& folder);

}  // namespace quarlin
