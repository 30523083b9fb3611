#pragma once

#include "cli/options/command_option.h"
#include "matching/material_input.h"
#include "matching/texture_rules.h"

namespace quarlin {

// Options for the files of a material, bound as those of command_option.h are.

/// A file, or with ":r", ":g", ":b" or ":a" behind its path one of its channels.
CommandOption channelOption(const QString& name, const QString& description, MaterialInput& target);

/// Which of several files for a slot is used; a list of words.
CommandOption preferOption(TexturePreference& target);

/// Words for names of files: "KIND=WORD,...".
CommandOption suffixOption(MapWords& target);

/// A file of such rules.
CommandOption rulesOption(MapWords& target);

}  // namespace quarlin
