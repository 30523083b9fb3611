#include "cli/options/texture_options.h"

#include "cli/base/local_file.h"
#include "cli/options/usage_error.h"

#include <QFileInfo>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// `path` without the letter of a channel. A file that has such a name itself comes first.
MaterialInput inputOf(const QString& path) {
    const qsizetype colon = path.lastIndexOf(u':');
    const auto channel =
        colon > 0 ? fromRawValue<TextureChannel>(QStringView(path).mid(colon + 1)) : std::nullopt;
    if (!channel || QFileInfo::exists(path)) {
        return {path, std::nullopt};
    }
    return {path.left(colon), channel};
}

template <typename Work>
void rejectingRules(const QString& option, Work work) {
    try {
        work();
    } catch (const TextureRuleError& error) {
        throw UsageError(u"--"_s + option + u": "_s + error.reason());
    }
}

}  // namespace

CommandOption channelOption(const QString& name, const QString& description, MaterialInput& target) {
    return {.name = name,
            .valueName = u"FILE"_s,
            .description = description,
            .apply =
                [name, &target](const QString& value) {
                    if (value.isEmpty()) {
                        throw UsageError(u"--"_s + name + u" takes a path, not ''"_s);
                    }
                    target = inputOf(value);
                },
            .kind = ValueKind::file};
}

CommandOption preferOption(TexturePreference& target) {
    const QString choices = preferenceWords().join(u", "_s) + u", a resolution (2k) or an extension (png)"_s;
    return {.name = u"prefer"_s,
            .valueName = u"WORD,..."_s,
            .description = u"of several files for a slot, take: "_s + choices +
                           u" (default larger,lossless,gl,roughness,separate)"_s,
            .apply =
                [choices, &target](const QString& value) {
                    for (const QString& word : value.split(u',')) {
                        if (!applyPreference(word, target)) {
                            throw UsageError(u"--prefer takes "_s + choices + u", not '"_s + word + u'\'');
                        }
                    }
                },
            .kind = ValueKind::choices,
            .choices = preferenceWords(),
            .repeatable = true};
}

CommandOption suffixOption(MapWords& target) {
    return {.name = u"suffix"_s,
            .valueName = u"KIND=WORD,..."_s,
            .description = u"files whose names end in one of the words are maps of this kind: "_s +
                           ruleNames().join(u", "_s) + u"; can be given more than once"_s,
            .apply =
                [&target](const QString& value) {
                    rejectingRules(u"suffix"_s, [&] { addSuffixRule(value, target); });
                },
            .repeatable = true};
}

CommandOption rulesOption(MapWords& target) {
    return {.name = u"rules"_s,
            .valueName = u"FILE"_s,
            .description = u"a text file with a value of --suffix in each line; lines with # are comments"_s,
            .apply =
                [&target](const QString& value) {
                    rejectingRules(u"rules"_s, [&] { addRulesOfFile(localFile(value), target); });
                },
            .kind = ValueKind::file};
}

}  // namespace quarlin
