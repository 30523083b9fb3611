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
    throw UsageError(QStringLiteral("--") + name + QStringLiteral(" takes ") + wanted +
                     QStringLiteral(", not '") + value + u'\'');
}

}  // namespace

CommandOption pathOption(const QString& name, const QString& valueName, const QString& description,
                         QString& target) {
    return {name, valueName, description, [name, &target](const QString& value) {
                if (value.isEmpty()) {
                    rejectValue(name, QStringLiteral("a path"), value);
                }
                target = value;
            }};
}

CommandOption nameOption(std::optional<QString>& target) {
    return {QStringLiteral("name"), QStringLiteral("TEXT"),
            QStringLiteral("name of the material (default: that of the first texture's file)"),
            [&target](const QString& value) { target = value; }};
}

CommandOption switchOption(const QString& name, const QString& description, bool& target, bool value) {
    return {name, {}, description, [&target, value](const QString&) { target = value; }};
}

CommandOption sizeOption(OutputResolution& target) {
    const QString name = QStringLiteral("size");
    QStringList words;
    for (const OutputResolution resolution : allCases<OutputResolution>()) {
        words += sizeWord(resolution);
    }
    return {name, QStringLiteral("SIZE"),
            QStringLiteral("edge of the maps in pixels: ") + listed(words) +
                QStringLiteral(", the first texture's own size for base") + defaultText(sizeWord(target)),
            [name, words, &target](const QString& value) {
                for (const OutputResolution resolution : allCases<OutputResolution>()) {
                    if (sizeWord(resolution) == value) {
                        target = resolution;
                        return;
                    }
                }
                rejectValue(name, listed(words), value);
            }};
}

CommandOption numberOption(const QString& name, const QString& description, double& target,
                           SettingRange<double> range) {
    const QString limits = rangeText(QString::number(range.lowest), QString::number(range.highest));
    return {name, QStringLiteral("F"),
            description + QStringLiteral(", ") + limits + defaultText(QString::number(target)),
            [name, limits, range, &target](const QString& text) {
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
    return {name, QStringLiteral("N"),
            description + QStringLiteral(", ") + limits + defaultText(QString::number(target)),
            [name, limits, range, &target](const QString& text) {
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

}  // namespace quarlin
