#include "command_option.h"

#include "usage_error.h"

#include <QStringList>

#include <utility>

namespace quarlin {

namespace {

/// The word for `resolution` on the command line.
QString sizeWord(OutputResolution resolution) {
    return fixedPixels(resolution) ? title(resolution) : QStringLiteral("base");
}

QString rangeText(const QString& lowest, const QString& highest) {
    return lowest + QStringLiteral(" to ") + highest;
}

/// The words as a sentence lists them: "a, b or c".
QString listed(const QStringList& words) {
    return words.mid(0, words.size() - 1).join(QStringLiteral(", ")) + QStringLiteral(" or ") + words.last();
}

QString defaultText(const QString& value) { return QStringLiteral(" (default ") + value + u')'; }

[[noreturn]] void rejectValue(const QString& name, const QString& wanted, const QString& value) {
    const QString subject = name.isEmpty() ? QStringLiteral("The command") : QStringLiteral("--") + name;
    throw UsageError(subject + QStringLiteral(" takes ") + wanted + QStringLiteral(", not '") + value +
                     u'\'');
}

QString checkedPath(const QString& name, const QString& value) {
    if (value.isEmpty()) {
        rejectValue(name, QStringLiteral("a path"), value);
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
    return {.name = QStringLiteral("name"),
            .valueName = QStringLiteral("TEXT"),
            .description = QStringLiteral("name of the material (default: that of the first texture's file)"),
            .apply = [&target](const QString& value) { target = value; }};
}

CommandOption switchOption(const QString& name, const QString& description, bool& target, bool value) {
    return {
        .name = name, .valueName = {}, .description = description, .apply = [&target, value](const QString&) {
            target = value;
        }};
}

CommandOption sizeOption(OutputResolution& target) {
    const QString name = QStringLiteral("size");
    QStringList words;
    for (const OutputResolution resolution : allCases<OutputResolution>()) {
        words += sizeWord(resolution);
    }
    return {.name = name,
            .valueName = QStringLiteral("SIZE"),
            .description = QStringLiteral("edge of the maps in pixels: ") + listed(words) +
                           QStringLiteral(", the first texture's own size for base") +
                           defaultText(sizeWord(target)),
            .apply =
                [name, words, &target](const QString& value) {
                    for (const OutputResolution resolution : allCases<OutputResolution>()) {
                        if (sizeWord(resolution) == value) {
                            target = resolution;
                            return;
                        }
                    }
                    rejectValue(name, listed(words), value);
                },
            .kind = ValueKind::word,
            .words = words};
}

CommandOption numberOption(const QString& name, const QString& description, double& target,
                           SettingRange<double> range) {
    const QString limits = rangeText(QString::number(range.lowest), QString::number(range.highest));
    return {.name = name,
            .valueName = QStringLiteral("F"),
            .description = description + QStringLiteral(", ") + limits + defaultText(QString::number(target)),
            .apply = [name, limits, range, &target](const QString& text) {
                bool isNumber = false;
                const double value = text.toDouble(&isNumber);
                // "nan" is a number to the conversion, and no range contains it.
                if (!isNumber || !range.contains(value)) {
                    rejectValue(name, QStringLiteral("a number from ") + limits, text);
                }
                // A negative zero would be printed as such in the notes.
                target = value == 0 ? 0 : value;
            }};
}

CommandOption countOption(const QString& name, const QString& description, int& target,
                          SettingRange<int> range) {
    const QString limits = rangeText(QString::number(range.lowest), QString::number(range.highest));
    return {.name = name,
            .valueName = QStringLiteral("N"),
            .description = description + QStringLiteral(", ") + limits + defaultText(QString::number(target)),
            .apply = [name, limits, range, &target](const QString& text) {
                bool isNumber = false;
                const int value = text.toInt(&isNumber);
                if (!isNumber || !range.contains(value)) {
                    rejectValue(name, QStringLiteral("a whole number from ") + limits, text);
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
