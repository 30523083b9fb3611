#pragma once

#include "cli/commands/check_command.h"
#include "cli/commands/maps_command.h"
#include "cli/commands/material_command.h"

#include <array>
#include <span>

namespace quarlin {

/// Every command of the program.
class Commands {
public:
    /// The commands in the order of the help.
    std::span<Command* const> all() const { return m_all; }

private:
    MaterialCommand m_material;
    MapsCommand m_maps;
    CheckCommand m_check;
    std::array<Command*, 3> m_all{&m_material, &m_maps, &m_check};
};

}  // namespace quarlin
