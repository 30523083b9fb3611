#pragma once

#include "model/output_resolution.h"
#include "model/setting_range.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace quarlin {

/// What an option's value is, for completion by a shell. `choices` are any number of choices, separated by
/// commas.
enum class ValueKind { file, folder, fileOrFolder, choice, choices, other };

/// One option of a command, bound to the field that it sets. Both parsing and help are derived from it.
struct CommandOption {
    /// The name without the leading "--"; empty for positional arguments.
    QString name;
    /// What the help calls the value; empty for a switch, which takes none.
    QString valueName;
    /// For the help.
    QString description;
    /// Writes the value, which a switch ignores, to the field. Throws `UsageError` if the value is invalid.
    std::function<void(const QString& value)> apply;
    ValueKind kind = ValueKind::other;
    /// The valid values; only for the kinds `choice` and `choices`.
    QStringList choices = {};
    bool required = false;
    /// The option that may be given instead of this required one.
    QString alternative = {};
    /// Whether it may be given more than once; every value is then applied, in the order of the arguments.
    bool repeatable = false;
};

using CommandOptions = std::vector<CommandOption>;

// Each of these binds `target`, which must outlive the option. The help gives the present value of a number
// or size as its default.

/// A path, which must not be empty.
CommandOption pathOption(const QString& name, const QString& valueName, const QString& description,
                         ValueKind kind, QString& target);

/// Any number of paths, none of them empty.
CommandOption pathsOption(const QString& name, const QString& valueName, const QString& description,
                          ValueKind kind, QStringList& targets);

/// The name of the set, which may be empty. Without the option the name is that of the first texture's file.
CommandOption nameOption(std::optional<QString>& target);

/// Sets `target` to `value`.
CommandOption switchOption(const QString& name, const QString& description, bool& target, bool value);

/// One of the output sizes.
CommandOption sizeOption(OutputResolution& target);

/// A number within `range`, with a decimal point.
CommandOption numberOption(const QString& name, const QString& description, double& target,
                           SettingRange<double> range);

/// A whole number within `range`.
CommandOption countOption(const QString& name, const QString& description, int& target,
                          SettingRange<int> range);

/// The same option, but required.
CommandOption required(CommandOption option);

/// The same option, but required unless the option `alternative` is given.
CommandOption requiredUnless(const QString& alternative, CommandOption option);

}  // namespace quarlin
