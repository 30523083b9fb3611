#pragma once

#include <QBrush>

class QPalette;

namespace quarlin {

/// What is painted behind pictures, so that their transparent pixels can be told from others: squares of 8
/// device-independent pixels in two shades of gray.
QBrush checkerboard(const QPalette& palette);

}  // namespace quarlin
