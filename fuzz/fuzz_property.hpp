#pragma once
// A property a fuzz target holds its subject to: a broken one aborts with
// its description, so that libFuzzer keeps the input as a finding.
#include <cstdio>
#include <cstdlib>

namespace orvanta::fuzz {

inline void check(bool condition, const char* what) {
  if (!condition) {
    std::fprintf(stderr, "fuzz property broken: %s\n", what);
    std::abort();
  }
}

}  // namespace orvanta::fuzz
