#pragma once

#include <QString>

namespace quarlin {

/// Turns a typed material name into a file-name stem that stays inside its folder on every file system.
///
/// Letters, marks and numbers of any script, "-", "_" and the space are kept; every other Unicode scalar
/// becomes one "_". Then white space is removed from both ends, and the remaining spaces become "_". If
/// nothing is left, the result is `fallback`.
QString safeMaterialName(const QString& name, const QString& fallback);

}  // namespace quarlin
