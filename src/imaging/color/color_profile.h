#pragma once

#include <QByteArray>

#include <optional>

namespace quarlin {

/// What an embedded ICC profile asks for.
enum class ProfileUse {
    /// The samples are sRGB as they stand: nothing to convert.
    samplesAreSRGB,
    /// The samples are to be converted.
    convert,
    /// The profile is damaged, or not one for this number of channels.
    unusable,
};

/// Judges `profile` for samples of `channels` color channels (1 gray, 3 RGB, 4 CMYK). A profile counts as
/// sRGB when it changes no sample by half an 8-bit step or more, whatever name it bears: many textures carry
/// slightly different writings of the same space.
ProfileUse judgeProfile(const QByteArray& profile, int channels);

/// The profile that stands for the gAMA chunk of a PNG file which carries no other word on its colors: the
/// encoding exponent as a fraction, with the primaries of sRGB. Nothing when there is no such chunk, or when
/// it states sRGB's own 0.45455.
std::optional<QByteArray> profileOfPngGamma(const QByteArray& png, int channels);

}  // namespace quarlin
