#pragma once

#include "model/enumeration.h"

#include <QLatin1StringView>
#include <QString>

namespace quarlin {

/// A row of the table of a tool's files. `Settings` is the record of the tool's settings.
template <typename Settings>
struct SetFile {
    /// The identifier of the file. The option "--no-" + `rawValue` of the command line leaves the file out.
    QLatin1StringView rawValue;
    /// What follows the material's name in the file's name.
    QLatin1StringView suffix;
    /// What the notes call the file. Empty for the notes themselves, which do not list themselves.
    QLatin1StringView title;
    /// The setting that switches the file; null for a file without a switch. The texts that follow belong to
    /// the switch and are empty without one.
    bool Settings::*isExported = nullptr;
    /// What the help of the option calls the file, after "write no".
    QLatin1StringView description = {};
    /// The text of the toggle in the settings panel.
    QLatin1StringView toggle = {};
};

/// Whether the switch of `file`, if it has one, is on.
template <typename File, typename Settings>
constexpr bool isSwitchedOn(File file, const Settings& settings) {
    const auto isExported = tableRow(file).isExported;
    return isExported == nullptr || settings.*isExported;
}

/// The name of `file` in the set of a material, whose name is cleaned already.
template <typename File>
QString fileName(const QString& materialName, File file) {
    return materialName + tableRow(file).suffix;
}

}  // namespace quarlin
