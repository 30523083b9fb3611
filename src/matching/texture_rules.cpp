#include "matching/texture_rules.h"

#include "imaging/files/file_bytes.h"
#include "imaging/files/file_error.h"
#include "imaging/files/file_names.h"

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

const auto openGLName = u"normal-gl"_s;
const auto directXName = u"normal-dx"_s;

std::optional<MapWord> meaningOf(const QString& name) {
    if (name == openGLName) {
        return MapWord{MapKind::normal, Evidence::clear, GreenDirection::openGL};
    }
    if (name == directXName) {
        return MapWord{MapKind::normal, Evidence::clear, GreenDirection::directX};
    }
    if (const auto kind = fromRawValue<MapKind>(name)) {
        return MapWord{*kind, Evidence::clear, GreenDirection::unknown};
    }
    return std::nullopt;
}

}  // namespace

QStringList ruleNames() {
    QStringList names;
    for (const MapKind kind : allCases<MapKind>()) {
        names += rawValue(kind);
        if (kind == MapKind::normal) {
            names += QStringList{openGLName, directXName};
        }
    }
    return names;
}

void addSuffixRule(const QString& rule, MapWords& words) {
    const qsizetype equals = rule.indexOf(u'=');
    if (equals < 0) {
        throw TextureRuleError(u"'"_s + rule + u"' is not of the form KIND=WORD"_s);
    }
    const QString name = rule.left(equals).trimmed().toLower();
    const auto meaning = meaningOf(name);
    if (!meaning) {
        throw TextureRuleError(u"'"_s + name + u"' is not one of "_s + ruleNames().join(u", "_s));
    }
    for (const QString& word : rule.mid(equals + 1).split(u',')) {
        if (!words.add(word, *meaning)) {
            throw TextureRuleError(u"'"_s + rule + u"' has an empty word"_s);
        }
    }
}

void addRulesOfFile(const QUrl& file, MapWords& words) {
    const QString name = lastPathComponent(file);
    QByteArray bytes;
    try {
        bytes = readFile(file).bytes;
    } catch (const FileError&) {
        throw TextureRuleError(name + u" can't be read"_s);
    }
    int line = 0;
    for (const QString& text : QString::fromUtf8(bytes).split(u'\n')) {
        ++line;
        const QString rule = text.trimmed();
        if (rule.isEmpty() || rule.startsWith(u'#')) {
            continue;
        }
        try {
            addSuffixRule(rule, words);
        } catch (const TextureRuleError& error) {
            throw TextureRuleError(name + u" line "_s + QString::number(line) + u": "_s + error.reason());
        }
    }
}

}  // namespace quarlin
