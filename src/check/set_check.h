#pragma once

#include "check/finding.h"

#include <QUrl>

namespace quarlin {

/// The most bytes of UTF-8 that Second Life keeps of an inventory name.
inline constexpr qsizetype longestInventoryName = 63;

/// The longest side, in pixels, that the Second Life viewer uploads; it scales larger images down.
inline constexpr std::int64_t longestSide = 2048;

/// Reads the exported set in `folder` back as a consumer would, and tells what would go wrong on upload.
/// Gives the findings in the order in which they are met: those on the documents, then material by material.
Findings checkSet(const QUrl& folder);

}  // namespace quarlin
