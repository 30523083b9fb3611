#include "cli/options/command_option.h"

#include "cli/options/usage_error.h"

#include <QStringList>

#include <utility>

namespace quarlin {

using namespace Qt::StringLiterals;

namespace {

/// `resolution` as an argument.
QString sizeArgument(OutputResolution resolution) {
    return fixedPixels(resolution) ? title(resolution) : u"base"_s;
}

QString rangeText(const QString& lowest, const QString& highest) { return lowest + u" to "_s + highest; }

/// The choices as a sentence lists them: "a, b or c".
QString listed(const QStringList& choices) {
    return choices.mid(0, choices.size() - 1).join(u", "_s) + u" or "_s + choices.last();
}

QString defaultText(const QString& value) { return u" (default "_s + value + u')'; }

[[noreturn]] void rejectValue(const QString& name, const QString& wanted, const QString& value) {
    const QString subject = name.isEmpty() ? u"The command"_s : u"--"_s + name;
    throw UsageError(subject + u" takes "_s + wanted + u", not '"_s + value + u'\'');
}

QString checkedPath(const QString& name, const QString& value) {
    if (value.isEmpty()) {
        rejectValue(name, u"a path"_s, value);
    }
    return value;
}

}  // namespace

CommandOption pathOption(const QString& name, const QString& valueName, const QString& description,
                         ValueKind kind, QString& target) {
    return {.name = name,
            .valueName = valueName,
            .description = description,
            .apply = [name, &target](const QString& value) { target = checkedPath(name, value); },
            .kind = kind};
}

CommandOption pathsOption(const QString& name, const QString& valueName, const QString& description,
                          ValueKind kind, QStringList& targets) {
    return {.name = name,
            .valueName = valueName,
            .description = description,
            .apply = [name, &targets](const QString& value) { targets += checkedPath(name, value); },
            .kind = kind,
            .repeatable = true};
}

CommandOption nameOption(std::optional<QString>& target) {
    return {.name = u"name"_s,
            .valueName = u"TEXT"_s,
            .description = u"name of the material (default: that of the first texture's file)"_s,
            .apply = [&target](const QString& value) { target = value; }};
}

CommandOption switchOption(const QString& name, const QString& description, bool& target, bool value) {
    return {
        .name = name, .valueName = {}, .description = description, .apply = [&target, value](const QString&) {
            target = value;
        }};
}

CommandOption sizeOption(OutputResolution& target) {
    const QString name = u"size"_s;
    QStringList choices;
    for (const OutputResolution resolution : allCases<OutputResolution>()) {
        choices += sizeArgument(resolution);
    }
    return {.name = name,
            .valueName = u"SIZE"_s,
            .description = u"width and height of the maps in pixels: "_s + listed(choices) +
                           u"; base keeps the size of the first texture"_s +
                           defaultText(sizeArgument(target)),
            .apply =
                [name, choices, &target](const QString& value) {
                    for (const OutputResolution resolution : allCases<OutputResolution>()) {
                        if (sizeArgument(resolution) == value) {
                            target = resolution;
                            return;
                        }
                    }
                    rejectValue(name, listed(choices), value);
                },
            .kind = ValueKind::choice,
            .choices = choices};
}

CommandOption numberOption(const QString& name, const QString& description, double& target,
                           SettingRange<double> range) {
    const QString limits = rangeText(QString::number(range.lowest), QString::number(range.highest));
    return {.name = name,
            .valueName = u"F"_s,
            .description = description + u", "_s + limits + defaultText(QString::number(target)),
            .apply = [name, limits, range, &target](const QString& text) {
                bool isNumber = false;
                const double value = text.toDouble(&isNumber);
                // The conversion accepts "nan", which no range contains.
                if (!isNumber || !range.contains(value)) {
                    rejectValue(name, u"a number from "_s + limits, text);
                }
                // The notes would show the sign of a negative zero.
                target = value == 0 ? 0 : value;
            }};
}

CommandOption countOption(const QString& name, const QString& description, int& target,
                          SettingRange<int> range) {
    const QString limits = rangeText(QString::number(range.lowest), QString::number(range.highest));
    return {.name = name,
            .valueName = u"N"_s,
            .description = description + u", "_s + limits + defaultText(QString::number(target)),
            .apply = [name, limits, range, &target](const QString& text) {
                bool isNumber = false;
                const int value = text.toInt(&isNumber);
                if (!isNumber || !range.contains(value)) {
                    rejectValue(name, u"a whole number from "_s + limits, text);
                }
                target = value;
            }};
}

CommandOption required(CommandOption option) {
    option.required = true;
    return option;
}

CommandOption requiredUnless(const QString& alternative, CommandOption option) {
    option.required = true;
    option.alternative = alternative;
    return option;
}

}  // namespace quarlin
