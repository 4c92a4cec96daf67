// The fuzz targets' one check: a broken invariant aborts, which libFuzzer reports as a finding.
#pragma once

#include <cstdlib>

inline void Require(bool condition) {
    if (!condition) std::abort();
}
