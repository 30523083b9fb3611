#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace quarlin {

/// A word of a file name and its position. A word ends at every character that is not a letter, mark or
/// number, and before a capital that begins a new word (BrickBaseColor).
struct NameWord {
    qsizetype begin = 0;
    QString text;

    qsizetype end() const { return begin + text.size(); }
};

std::vector<NameWord> nameWords(const QString& name);

/// The resolution in pixels that `word`, in lower case, states: 2k, 2048x2048, or a power of two from 64;
/// 0 if it states none.
int statedResolution(const QString& word);

/// Whether `word`, in lower case, is a resolution or bit depth that can't be taken for anything else (2k,
/// 1024x1024, 16bit, srgb), wherever it is in a name.
bool isAlwaysAboutTheFile(const QString& word);

/// Whether `word`, in lower case, describes the file rather than its contents when it is at either end of a
/// name: a resolution, bit depth or file format.
bool isAboutTheFile(const QString& word);

/// The same behind the word of a map, where more words are clear: color spaces, levels of detail, and "map"
/// itself.
bool isAboutTheMap(const QString& word);

/// The number after "v", "ver" or "version" in a word in lower case.
std::optional<int> statedVersion(const QString& word);

/// The number after "var" or "variation" in a word in lower case.
std::optional<int> statedVariant(const QString& word);

}  // namespace quarlin
