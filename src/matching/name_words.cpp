#include "matching/name_words.h"

#include "model/image_file_type.h"

#include <algorithm>
#include <array>
#include <bit>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

bool isPartOfWord(QChar character) {
    return character.isLetterOrNumber() || character.isMark() || character.isSurrogate();
}

/// Whether a capital at `index` begins a new word: BrickWall, BrickAOMap, Brick2Color, but not 2K.
bool beginsWord(const QString& name, qsizetype index) {
    if (!name[index].isUpper()) {
        return false;
    }
    const QChar before = name[index - 1];
    const bool isBeforeLower = index + 1 < name.size() && name[index + 1].isLower();
    return before.isLower() || ((before.isUpper() || before.isNumber()) && isBeforeLower);
}

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

/// The number that all of `text` is; nothing if it has other characters, or none, or too many.
std::optional<int> wholeNumber(QStringView text) {
    constexpr qsizetype longest = 6;
    if (text.isEmpty() || text.size() > longest || !std::all_of(text.begin(), text.end(), isDigit)) {
        return std::nullopt;
    }
    return text.toInt();
}

template <typename Prefixes>
std::optional<int> numberAfter(const QString& word, const Prefixes& prefixes) {
    for (const QLatin1StringView prefix : prefixes) {
        if (word.startsWith(prefix)) {
            if (const auto number = wholeNumber(QStringView(word).mid(prefix.size()))) {
                return number;
            }
        }
    }
    return std::nullopt;
}

/// 2k or 2048x1024, whose longer side counts; 0 for any other word.
int clearResolution(const QString& word) {
    constexpr int pixelsPerK = 1024;
    constexpr qsizetype longestK = 3;
    if (word.size() <= longestK && word.endsWith(u'k')) {
        return wholeNumber(QStringView(word).chopped(1)).value_or(0) * pixelsPerK;
    }
    const qsizetype cross = word.indexOf(u'x');
    if (cross < 2 || word.size() - cross < 3) {
        return 0;
    }
    const auto width = wholeNumber(QStringView(word).left(cross));
    const auto height = wholeNumber(QStringView(word).mid(cross + 1));
    return width && height ? std::max(*width, *height) : 0;
}

bool isBitDepth(const QString& word) {
    for (const QLatin1StringView unit : {"bit"_L1, "bits"_L1, "bpc"_L1}) {
        if (word.endsWith(unit)) {
            const auto bits = wholeNumber(QStringView(word).chopped(unit.size()));
            return bits && (*bits == 8 || *bits == 16 || *bits == 32);
        }
    }
    return false;
}

}  // namespace

std::vector<NameWord> nameWords(const QString& name) {
    std::vector<NameWord> words;
    bool isInside = false;
    for (qsizetype index = 0; index < name.size(); ++index) {
        const bool belongs = isPartOfWord(name[index]);
        if (belongs && (!isInside || beginsWord(name, index))) {
            words.push_back({index, {}});
        }
        if (belongs) {
            words.back().text += name[index];
        }
        isInside = belongs;
    }
    return words;
}

int statedResolution(const QString& word) {
    constexpr int smallest = 64;
    if (const int resolution = clearResolution(word)) {
        return resolution;
    }
    const int pixels = wholeNumber(word).value_or(0);
    return pixels >= smallest && std::has_single_bit(static_cast<unsigned>(pixels)) ? pixels : 0;
}

bool isAlwaysAboutTheFile(const QString& word) {
    return clearResolution(word) > 0 || isBitDepth(word) || word == "srgb"_L1;
}

bool isAboutTheFile(const QString& word) {
    return statedResolution(word) > 0 || isAlwaysAboutTheFile(word) || isImageExtension(word);
}

bool isAboutTheMap(const QString& word) {
    constexpr std::array known{"map"_L1,    "maps"_L1,     "tex"_L1,     "texture"_L1,
                               "linear"_L1, "raw"_L1,      "acescg"_L1,  "nonlinear"_L1,
                               "rec709"_L1, "tileable"_L1, "seamless"_L1};
    return isAboutTheFile(word) || isUnreadImageExtension(word) ||
           numberAfter(word, std::array{"lod"_L1}).has_value() ||
           std::find(known.begin(), known.end(), word) != known.end();
}

std::optional<int> statedVersion(const QString& word) {
    return numberAfter(word, std::array{"v"_L1, "ver"_L1, "version"_L1});
}

std::optional<int> statedVariant(const QString& word) {
    return numberAfter(word, std::array{"var"_L1, "variation"_L1});
}

}  // namespace quarlin
