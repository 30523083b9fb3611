#include "matching/texture_preference.h"

#include "matching/name_words.h"
#include "model/image_file_type.h"

#include <array>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

struct PreferenceWord {
    QLatin1StringView text;
    bool TexturePreference::*field;
    bool value;
};

constexpr std::array words{
    PreferenceWord{"larger"_L1, &TexturePreference::prefersSmaller, false},
    PreferenceWord{"smaller"_L1, &TexturePreference::prefersSmaller, true},
    PreferenceWord{"lossless"_L1, &TexturePreference::prefersLossy, false},
    PreferenceWord{"lossy"_L1, &TexturePreference::prefersLossy, true},
    PreferenceWord{"gl"_L1, &TexturePreference::prefersDirectX, false},
    PreferenceWord{"dx"_L1, &TexturePreference::prefersDirectX, true},
    PreferenceWord{"roughness"_L1, &TexturePreference::prefersGloss, false},
    PreferenceWord{"gloss"_L1, &TexturePreference::prefersGloss, true},
    PreferenceWord{"separate"_L1, &TexturePreference::prefersPacked, false},
    PreferenceWord{"packed"_L1, &TexturePreference::prefersPacked, true},
};

}  // namespace

bool applyPreference(const QString& word, TexturePreference& preference) {
    const QString text = word.trimmed().toLower();
    for (const PreferenceWord& known : words) {
        if (known.text == text) {
            preference.*known.field = known.value;
            return true;
        }
    }
    if (const int resolution = statedResolution(text)) {
        preference.resolution = resolution;
        return true;
    }
    if (isImageExtension(text)) {
        preference.extension = text;
        return true;
    }
    return false;
}

QStringList preferenceWords() {
    QStringList texts;
    for (const PreferenceWord& word : words) {
        texts += word.text;
    }
    return texts;
}

bool isLossless(const QString& extension) {
    constexpr std::array lossless{"png"_L1, "tif"_L1, "tiff"_L1, "bmp"_L1, "tga"_L1};
    return std::find(lossless.begin(), lossless.end(), extension) != lossless.end();
}

}  // namespace quarlin
