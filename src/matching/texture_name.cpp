#include "matching/texture_name.h"

#include "model/image_file_type.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// A word of a name and its position.
struct Word {
    qsizetype begin = 0;
    QString text;

    qsizetype end() const { return begin + text.size(); }
};

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

std::vector<Word> wordsOf(const QString& name) {
    std::vector<Word> words;
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

bool isResolution(const QString& word) {
    static const QRegularExpression shape(u"^([0-9]{1,2}k|[0-9]{2,5}x[0-9]{2,5})$"_s,
                                          QRegularExpression::CaseInsensitiveOption);
    constexpr int smallest = 64;
    bool isNumber = false;
    const int pixels = word.toInt(&isNumber);
    return (isNumber && pixels >= smallest && std::has_single_bit(static_cast<unsigned>(pixels))) ||
           shape.match(word).hasMatch();
}

/// Whether the word describes the file rather than its contents.
bool isAboutTheFile(const QString& word) { return isResolution(word) || isImageExtension(word); }

struct Suffix {
    const char* text;
    TextureSlotKind slot;
    bool isGloss = false;
};

/// The suffixes that are common in texture libraries, in lower case.
constexpr std::array suffixes{
    Suffix{"basecolor", TextureSlotKind::baseColor},
    Suffix{"basecolour", TextureSlotKind::baseColor},
    Suffix{"albedo", TextureSlotKind::baseColor},
    Suffix{"diffuse", TextureSlotKind::baseColor},
    Suffix{"diff", TextureSlotKind::baseColor},
    Suffix{"color", TextureSlotKind::baseColor},
    Suffix{"colour", TextureSlotKind::baseColor},
    Suffix{"col", TextureSlotKind::baseColor},
    Suffix{"normal", TextureSlotKind::normal},
    Suffix{"nrm", TextureSlotKind::normal},
    Suffix{"nor", TextureSlotKind::normal},
    Suffix{"nml", TextureSlotKind::normal},
    Suffix{"ambientocclusion", TextureSlotKind::occlusion},
    Suffix{"occlusion", TextureSlotKind::occlusion},
    Suffix{"ao", TextureSlotKind::occlusion},
    Suffix{"roughness", TextureSlotKind::roughness},
    Suffix{"rough", TextureSlotKind::roughness},
    Suffix{"glossiness", TextureSlotKind::roughness, true},
    Suffix{"gloss", TextureSlotKind::roughness, true},
    Suffix{"smoothness", TextureSlotKind::roughness, true},
    Suffix{"metallic", TextureSlotKind::metallic},
    Suffix{"metalness", TextureSlotKind::metallic},
    Suffix{"metal", TextureSlotKind::metallic},
};

/// What may follow the suffix of a normal map, in lower case. One that ends in another comes before it.
constexpr std::array openGLWords{"opengl", "ogl", "gl"};
constexpr std::array directXWords{"dx", "directx"};

template <typename Words>
QString withoutEnd(const QString& text, const Words& ends) {
    for (const char* end : ends) {
        const QString ending = QString::fromLatin1(end);
        if (text.endsWith(ending)) {
            return text.chopped(ending.size());
        }
    }
    return {};
}

const Suffix* findSuffix(const QString& text) {
    const auto found = std::find_if(suffixes.begin(), suffixes.end(), [&](const Suffix& suffix) {
        return text == QLatin1StringView(suffix.text);
    });
    return found == suffixes.end() ? nullptr : &*found;
}

/// What `text`, in lower case and without separators, says as a suffix.
std::optional<TextureName> readSuffix(const QString& text) {
    TextureName name;
    QString plain = text;
    if (const QString openGL = withoutEnd(text, openGLWords); !openGL.isEmpty()) {
        name.isOpenGL = true;
        plain = openGL;
    } else if (const QString directX = withoutEnd(text, directXWords); !directX.isEmpty()) {
        name.isDirectX = true;
        plain = directX;
    }
    const Suffix* suffix = findSuffix(plain);
    if (suffix == nullptr || (plain != text && suffix->slot != TextureSlotKind::normal)) {
        return std::nullopt;
    }
    name.slot = suffix->slot;
    name.isGloss = suffix->isGloss;
    return name;
}

}  // namespace

std::optional<TextureName> readTextureName(const QString& stem) {
    std::vector<Word> words = wordsOf(stem);
    while (!words.empty() && (isAboutTheFile(words.back().text) || words.back().text.toLower() == u"map"_s)) {
        words.pop_back();
    }
    // The longest suffix comes first, as "Base_Color" ends in another one, "Color". "Normal_Open_GL" has
    // three words.
    constexpr std::size_t mostWords = 3;
    for (std::size_t count = std::min(mostWords, words.size()); count > 0; --count) {
        QString text;
        for (std::size_t index = words.size() - count; index < words.size(); ++index) {
            text += words[index].text.toLower();
        }
        std::optional<TextureName> name = readSuffix(text);
        if (!name) {
            continue;
        }
        words.resize(words.size() - count);
        while (!words.empty() && isAboutTheFile(words.back().text)) {
            words.pop_back();
        }
        if (!words.empty()) {
            name->material = stem.left(words.back().end());
        }
        return name;
    }
    return std::nullopt;
}

QStringList textureSuffixes(TextureSlotKind slot) {
    QStringList texts;
    for (const Suffix& suffix : suffixes) {
        if (suffix.slot == slot) {
            texts += QString::fromLatin1(suffix.text);
        }
    }
    return texts;
}

QString materialKey(const QString& material) {
    QStringList words;
    for (const Word& word : wordsOf(material)) {
        words += word.text.toCaseFolded();
    }
    return words.join(u' ');
}

}  // namespace quarlin
