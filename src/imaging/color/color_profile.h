#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quarlin {

/// An ICC profile, and what the user knows it by.
struct NamedProfile {
    QByteArray bytes;
    QString name;
};

/// The description that a profile contains, such as "Dot Gain 20%"; a general name if it has none.
QString profileName(const QByteArray& profile);

/// What an embedded ICC profile asks for.
enum class ProfileUse {
    /// The samples are sRGB: nothing to convert.
    samplesAreSRGB,
    /// The samples are to be converted.
    convert,
    /// The profile is damaged, or not made for this number of channels.
    unusable,
};

/// Judges `profile` for samples of `channels` color channels (1 gray, 3 RGB, 4 CMYK). A profile counts as
/// sRGB if it changes no sample by half an 8-bit step or more, whatever its name: many textures have slightly
/// different descriptions of the same space.
ProfileUse judgeProfile(const QByteArray& profile, int channels);

/// The profile of samples with this encoding exponent (the value of a PNG file's gAMA chunk as a fraction),
/// with the primaries of sRGB; gray for 1 channel, RGB for 3. Nothing if it is sRGB's own 0.45455 or makes no
/// sense.
std::optional<QByteArray> profileOfGamma(double gamma, int channels);

/// The profile of CIELAB samples for the white of D50. The integers of a sample cover 0...100 for L and
/// -128...127 for a and b, from end to end.
QByteArray labProfile();

}  // namespace quarlin
