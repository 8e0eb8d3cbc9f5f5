// Linked into the static orvanta_cli only, with
// -Wl,--wrap=_ZNSt6locale7classicEv (see app/CMakeLists.txt).
//
// double-conversion's string-to-double matches infinity and NaN symbols
// case-insensitively through std::locale::classic(). That one reference
// pulls the whole C++ locale into a static program: every facet, wide
// character and monetary formatting, and the C library's conversion
// tables, half a megabyte that nothing else reaches. The JSON number
// decoder builds its converter without symbols and without case
// insensitivity, so that path never runs; the wrap answers the reference
// with a function that would end the program if it ever did.

#include <cstdio>
#include <cstdlib>
#include <locale>

extern "C" const std::locale& __wrap__ZNSt6locale7classicEv() {
  std::fputs("orvanta_cli: std::locale::classic() is not linked into this program\n", stderr);
  std::abort();
}
