#pragma once

#include <QString>

namespace quarlin {

/// Turns a typed material name into a file-name stem that stays inside its folder on every file system.
///
/// Every Unicode scalar that is no letter, mark or number, nor "-", "_" or space, becomes one "_"; white
/// space at both ends is cut off; the spaces left become "_". A name of which nothing remains gives
/// `fallback`.
QString safeMaterialName(const QString& name, const QString& fallback);

}  // namespace quarlin
