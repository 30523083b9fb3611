#pragma once

#include <cstdio>
#include <cstdlib>

namespace quarlin::fuzz {

/// Ends the program as a finding when what must hold for every input does not.
inline void expect(bool holds, const char* statement) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", statement);
        std::abort();
    }
}

}  // namespace quarlin::fuzz
