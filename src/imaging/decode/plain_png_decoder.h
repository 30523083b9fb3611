#pragma once

#include <QByteArray>
#include <QImage>

namespace quarlin {

/// Decodes the most common kind of PNG at several times the speed of the general decoder, and to the same
/// bytes: 8 bits a sample, gray or RGB with or without alpha, not interlaced, no palette, no color key, no
/// color but sRGB's. A null image when the bytes are anything else, or are damaged in any way: then the
/// general decoder has the word.
QImage decodePlainPng(const QByteArray& bytes);

}  // namespace quarlin
