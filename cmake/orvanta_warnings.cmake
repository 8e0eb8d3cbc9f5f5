# One interface target that carries the warning set; every target of the
# project links it PRIVATE.
add_library(orvanta_warnings INTERFACE)
target_compile_options(orvanta_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wformat=2 -Wcast-qual
  -Wold-style-cast -Woverloaded-virtual)
if(ORVANTA_WERROR)
  target_compile_options(orvanta_warnings INTERFACE -Werror)
endif()
