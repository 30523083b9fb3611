#pragma once

#include "model/output_resolution.h"
#include "model/setting_range.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace quarlin {

/// What an option's value is, as far as a shell can help with typing it.
enum class ValueKind { file, folder, fileOrFolder, word, other };

/// One option of a command, bound to the field that it sets. What is parsed and what the help tells both come
/// from here.
struct CommandOption {
    /// What is typed, without the leading "--"; empty for the words that stand alone.
    QString name;
    /// What the help calls the value; empty for a switch, which takes none.
    QString valueName;
    /// What the help says of the option.
    QString description;
    /// Writes the value, which a switch ignores, to the field. Throws `UsageError` when the value is off.
    std::function<void(const QString& value)> apply;
    ValueKind kind = ValueKind::other;
    /// The words that the value is one of; only for the kind `word`.
    QStringList words = {};
    bool required = false;
    /// The option that may be given in place of this one, which is required otherwise.
    QString alternative = {};
    /// Whether it may be given more than once; then every value is applied, in the order of the words.
    bool repeatable = false;
};

using CommandOptions = std::vector<CommandOption>;

// Each of these binds `target`, which has to outlive the option, and whose present value the help gives as
// the default where there is one.

/// A path, which must not be empty.
CommandOption pathOption(const QString& name, const QString& valueName, const QString& description,
                         ValueKind kind, QString& target);

/// Any number of paths, none of them empty.
CommandOption pathsOption(const QString& name, const QString& valueName, const QString& description,
                          ValueKind kind, QStringList& targets);

/// The name of the set, an empty one too; without it the name comes from the first texture's file.
CommandOption nameOption(std::optional<QString>& target);

/// Sets `target` to `value`.
CommandOption switchOption(const QString& name, const QString& description, bool& target, bool value);

/// One of the output sizes.
CommandOption sizeOption(OutputResolution& target);

/// A number within `range`, written with a decimal point.
CommandOption numberOption(const QString& name, const QString& description, double& target,
                           SettingRange<double> range);

/// A whole number within `range`.
CommandOption countOption(const QString& name, const QString& description, int& target,
                          SettingRange<int> range);

/// The same option, which the command can't do without.
CommandOption required(CommandOption option);

/// The same option, which the command can't do without unless the option `alternative` is given.
CommandOption requiredUnless(const QString& alternative, CommandOption option);

}  // namespace quarlin
