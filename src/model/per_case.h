#pragma once

#include "model/enumeration.h"

#include <array>
#include <cstddef>

namespace quarlin {

/// One value for each case of an enumeration of the model, in the order of the cases.
template <typename Enum, typename Value>
struct PerCase {
    std::array<Value, EnumerationTable<Enum>::rows.size()> values{};

    constexpr Value& operator[](Enum which) { return values[static_cast<std::size_t>(which)]; }
    constexpr const Value& operator[](Enum which) const { return values[static_cast<std::size_t>(which)]; }

    bool operator==(const PerCase&) const = default;
};

}  // namespace quarlin
