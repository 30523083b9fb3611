#include "matching/texture_name.h"

#include "matching/name_words.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

using Words = std::vector<NameWord>;

std::optional<GreenDirection> statedDirection(const QString& word) {
    if (word == "gl"_L1 || word == "ogl"_L1 || word == "opengl"_L1) {
        return GreenDirection::openGL;
    }
    if (word == "dx"_L1 || word == "directx"_L1) {
        return GreenDirection::directX;
    }
    return std::nullopt;
}

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

/// A number of up to three digits that counts files or materials.
bool isCount(const QString& word) {
    constexpr qsizetype longest = 3;
    return word.size() <= longest && std::all_of(word.begin(), word.end(), isDigit);
}

std::optional<int> tileNumber(const QString& word) {
    constexpr int first = 1001;
    constexpr int last = 1999;
    const int number = word.size() == 4 && std::all_of(word.begin(), word.end(), isDigit) ? word.toInt() : 0;
    return number >= first && number <= last ? std::optional(number) : std::nullopt;
}

/// Whether the word behind a map names the workflow of the whole set.
bool isWorkflow(const QString& word) { return word == "metalness"_L1 || word == "specular"_L1; }

/// What the words after that of the map say.
struct Additions {
    int resolution = 0;
    int version = 0;
    int variant = 0;
    GreenDirection green = GreenDirection::unknown;
    QString number;
    std::optional<int> tile;
};

/// Takes `word` as one that describes the file, and returns whether it is one. `isAbout` recognizes the words
/// without a number of their own.
bool takeAboutTheFile(const QString& word, Additions& additions,
                      bool (*isAbout)(const QString&) = isAboutTheFile) {
    if (const auto version = statedVersion(word)) {
        additions.version = *version;
        return true;
    }
    if (const auto variant = statedVariant(word)) {
        additions.variant = *variant;
        return true;
    }
    if (!isAbout(word)) {
        return false;
    }
    additions.resolution = std::max(additions.resolution, statedResolution(word));
    return true;
}

/// Takes `word` as one that may follow the word of a map, and returns whether it is one.
bool takeAddition(const QString& word, Additions& additions) {
    if (takeAboutTheFile(word, additions, isAboutTheMap)) {
        return true;
    }
    if (const auto direction = statedDirection(word)) {
        additions.green = *direction;
        return true;
    }
    if (const auto tile = tileNumber(word); tile && !additions.tile) {
        additions.tile = tile;
        return true;
    }
    if (isCount(word) && additions.number.isEmpty()) {
        additions.number = word;
        return true;
    }
    return false;
}

/// The meaning of one word that may have an addition attached: "nrm16", "aomap", "normaldx". Only a word that
/// counts alone may have one.
std::optional<MapWord> attachedWord(const QString& text, const MapWords& words, Additions& additions) {
    if (const auto word = words.find(text)) {
        return word;
    }
    const auto attachedTo = [&](qsizetype end) -> std::optional<MapWord> {
        Additions more = additions;
        const QString tail = text.mid(end);
        const bool isBitDepth = tail == "16"_L1 || tail == "32"_L1 || tail == "8"_L1;
        if (!isBitDepth && !takeAddition(tail, more)) {
            return std::nullopt;
        }
        const auto word = attachedWord(text.left(end), words, more);
        if (!word || word->evidence == Evidence::letter ||
            (statedDirection(tail) && word->kind != MapKind::normal)) {
            return std::nullopt;
        }
        additions = more;
        return word;
    };
    const auto digits = std::find_if(text.begin(), text.end(), isDigit) - text.begin();
    if (digits > 1 && digits < text.size()) {
        return attachedTo(digits);
    }
    for (const QLatin1StringView tail : {"map"_L1, "opengl"_L1, "ogl"_L1, "gl"_L1, "directx"_L1, "dx"_L1}) {
        if (text.size() > tail.size() + 1 && text.endsWith(tail)) {
            if (const auto word = attachedTo(text.size() - tail.size())) {
                return word;
            }
        }
    }
    return std::nullopt;
}

/// A map that some of the words name, and the number of words before it.
struct FoundMap {
    MapWord word;
    Additions additions;
    std::size_t before = 0;
};

/// The words from `begin` to `end` as one, in lower case.
QString joined(const Words& words, std::size_t begin, std::size_t end) {
    QString text;
    for (std::size_t index = begin; index < end; ++index) {
        text += words[index].text;
    }
    return text.toLower();
}

/// Whether the words from `begin` to `end` can be one map: "Base_Color" can, but "wall_a_orm" ends in "orm".
bool canBeOneMap(const Words& words, std::size_t begin, std::size_t end) {
    const auto isLetter = [](const NameWord& word) { return word.text.size() == 1; };
    return end - begin == 1 || std::none_of(words.begin() + static_cast<std::ptrdiff_t>(begin),
                                            words.begin() + static_cast<std::ptrdiff_t>(end), isLetter);
}

/// Reads the words before `end` from the last one on.
std::optional<FoundMap> findMap(const Words& words, std::size_t end, const MapWords& known,
                                Additions additions, bool mayBeWorkflow) {
    // The longest text comes first, as "Base_Color" ends in another map, "Color".
    constexpr std::size_t mostWords = 4;
    while (end > 0) {
        std::size_t taken = 0;
        for (std::size_t count = std::min(mostWords, end); count > 0 && taken == 0; --count) {
            const QString text = joined(words, end - count, end);
            if (mayBeWorkflow && isWorkflow(text)) {
                auto inner = findMap(words, end - count, known, additions, false);
                if (inner && inner->word.evidence == Evidence::clear) {
                    return inner;
                }
            }
            const auto word =
                canBeOneMap(words, end - count, end) ? attachedWord(text, known, additions) : std::nullopt;
            if (word) {
                return FoundMap{*word, additions, end - count};
            }
            if (takeAddition(text, additions)) {
                taken = count;
            }
        }
        if (taken == 0) {
            return std::nullopt;
        }
        end -= taken;
    }
    return std::nullopt;
}

/// The text of the first `count` words without words about the file at its ends.
QString materialText(const QString& stem, const Words& words, std::size_t count, Additions& additions) {
    std::size_t first = 0;
    while (count > 0 && takeAboutTheFile(words[count - 1].text.toLower(), additions)) {
        --count;
    }
    while (first < count && isAlwaysAboutTheFile(words[first].text.toLower())) {
        additions.resolution = std::max(additions.resolution, statedResolution(words[first].text.toLower()));
        ++first;
    }
    return first == count ? QString()
                          : stem.mid(words[first].begin, words[count - 1].end() - words[first].begin);
}

}  // namespace

TextureName readTextureName(const QString& stem, const MapWords& known) {
    const Words words = nameWords(stem);
    TextureName name;
    Additions ofPlain;
    name.plain = materialText(stem, words, words.size(), ofPlain);
    name.plainKey = materialKey(name.plain);
    auto found = findMap(words, words.size(), known, {}, true);
    if (found) {
        NamedMap map;
        map.kind = found->word.kind;
        map.evidence = found->word.evidence;
        map.number = found->additions.number;
        map.tile = found->additions.tile;
        map.green = found->word.green != GreenDirection::unknown ? found->word.green : found->additions.green;
        map.material = materialText(stem, words, found->before, found->additions);
        map.key = materialKey(map.material);
        name.map = map;
    }
    const Additions& additions = found ? found->additions : ofPlain;
    name.resolution = additions.resolution;
    name.version = additions.version;
    name.variant = additions.variant;
    return name;
}

QString materialKey(const QString& material) {
    QStringList texts;
    for (const NameWord& word : nameWords(material)) {
        if (!isAlwaysAboutTheFile(word.text.toLower())) {
            texts += word.text.toCaseFolded();
        }
    }
    return texts.join(u' ');
}

}  // namespace quarlin
