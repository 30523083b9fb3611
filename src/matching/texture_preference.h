#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace quarlin {

/// Which of several files for the same slot is used. The defaults are those of the command line.
struct TexturePreference {
    /// The resolution to take if there is one, in pixels; 0 for the largest.
    int resolution = 0;
    bool prefersSmaller = false;
    /// The format to take if there is one, as an extension; empty for a lossless one.
    QString extension;
    bool prefersLossy = false;
    bool prefersDirectX = false;
    bool prefersGloss = false;
    bool prefersPacked = false;
};

/// Applies one word of `preferenceWords`, a resolution or an extension to `preference`; returns false for any
/// other word.
bool applyPreference(const QString& word, TexturePreference& preference);

/// The words for the preferences, besides resolutions and extensions.
QStringList preferenceWords();

/// Whether files with `extension`, in lower case, keep every sample as it is.
bool isLossless(const QString& extension);

}  // namespace quarlin
