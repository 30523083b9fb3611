#pragma once

#include "cli/options/command_option.h"
#include "model/set_file.h"

namespace quarlin {

/// Adds an option for each file of a set that has a switch, which leaves the file out. `settings` has to
/// outlive the options.
template <typename File, typename Settings>
void addFileOptions(CommandOptions& options, Settings& settings) {
    using namespace Qt::StringLiterals;
    for (const SetFile<Settings>& file : EnumerationTable<File>::rows) {
        if (file.isExported != nullptr) {
            options.push_back(switchOption(u"no-"_s + file.rawValue, u"write no "_s + file.description,
                                           settings.*file.isExported, false));
        }
    }
}

}  // namespace quarlin
