#pragma once

#include <cstdio>
#include <cstdlib>

namespace quarlin::fuzz {

/// Reports a finding and ends the program unless `holds`, which must be true for every input.
inline void expect(bool holds, const char* statement) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", statement);
        std::abort();
    }
}

}  // namespace quarlin::fuzz
