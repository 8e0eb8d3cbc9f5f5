# orvanta_cli is started for every single command, so what the loader does
# before main counts as much as the command itself: resolving three shared
# libraries and their relocations took most of a millisecond of CPU, more
# than connecting and authorizing. The programs that start per command
# (orvanta_cli, and the start-up floor of bench/) are therefore linked
# statically, with unused sections dropped.
#
#   static-pie  static, still loaded at a random address (the default)
#   static      static at a fixed address; the least start-up work
#   dynamic     as every other program of the build
#
# Sanitizer runtimes cannot be linked statically; sanitized builds stay
# dynamic whatever is chosen.
set(ORVANTA_CLI_LINK "static-pie" CACHE STRING "How orvanta_cli is linked: static-pie, static or dynamic")
set_property(CACHE ORVANTA_CLI_LINK PROPERTY STRINGS static-pie static dynamic)

if(CMAKE_CXX_FLAGS MATCHES "-fsanitize" OR CMAKE_EXE_LINKER_FLAGS MATCHES "-fsanitize")
  set(ORVANTA_CLI_LINK_EFFECTIVE dynamic)
else()
  set(ORVANTA_CLI_LINK_EFFECTIVE ${ORVANTA_CLI_LINK})
endif()

# Each function and object in its own section, so that the linker can drop
# what no program reaches.
add_compile_options(-ffunction-sections -fdata-sections)

# Every program of the build is linked by lld when it is there, for two
# things the default linker does not do: it folds functions whose code is
# byte for byte the same (the record codecs instantiate many identical field
# readers and coroutine frames), and it packs the relative relocations that
# a static-pie program applies to itself before main into a bitmap (only
# there: the dynamic loader wants a version tag for packed relocations that
# this lld does not write). The tests are linked the same way, so they run
# folded code as orvanta_cli does.
# ORVANTA_LLD=OFF, no lld, a sanitizer or ORVANTA_CLI_LINK=dynamic keeps the
# default linker.
option(ORVANTA_LLD "Link with lld, folding identical code and packing relocations" ON)
set(ORVANTA_LLD_EFFECTIVE OFF)
if(ORVANTA_LLD AND NOT ORVANTA_CLI_LINK_EFFECTIVE STREQUAL "dynamic")
  include(CheckLinkerFlag)
  check_linker_flag(CXX "-fuse-ld=lld;-Wl,--icf=all;-Wl,--pack-dyn-relocs=relr" ORVANTA_HAVE_LLD)
  if(ORVANTA_HAVE_LLD)
    set(ORVANTA_LLD_EFFECTIVE ON)
    add_link_options(-fuse-ld=lld -Wl,--icf=all)
  else()
    message(STATUS "lld not found: linking with the default linker, without identical code folding")
  endif()
endif()

# Compiles `targets` with -Os instead of the build type's -O2 or -O3: 0.8 MB
# of orvanta_cli's 3.6 MB is code that runs once per command. Not in Debug
# builds, and not under a sanitizer, whose flags choose the level.
function(orvanta_built_for_size)
  if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    return()
  endif()
  foreach(target IN LISTS ARGN)
    target_compile_options(${target} PRIVATE $<$<NOT:$<CONFIG:Debug>>:-Os>)
  endforeach()
endfunction()

# A static program takes the archive of double-conversion; the imported
# target names the shared object.
if(NOT ORVANTA_CLI_LINK_EFFECTIVE STREQUAL "dynamic")
  find_library(ORVANTA_DOUBLE_CONVERSION_ARCHIVE libdouble-conversion.a)
  if(NOT ORVANTA_DOUBLE_CONVERSION_ARCHIVE)
    message(FATAL_ERROR "ORVANTA_CLI_LINK=${ORVANTA_CLI_LINK} needs libdouble-conversion.a (libdouble-conversion-dev)")
  endif()
  get_target_property(_orvanta_dc_configs double-conversion::double-conversion IMPORTED_CONFIGURATIONS)
  foreach(config IN LISTS _orvanta_dc_configs)
    set_target_properties(double-conversion::double-conversion PROPERTIES
      IMPORTED_LOCATION_${config} ${ORVANTA_DOUBLE_CONVERSION_ARCHIVE})
  endforeach()
  set_target_properties(double-conversion::double-conversion PROPERTIES
    IMPORTED_LOCATION ${ORVANTA_DOUBLE_CONVERSION_ARCHIVE})
endif()

# Links `target` the way chosen above.
function(orvanta_lean_program target)
  target_link_options(${target} PRIVATE -Wl,--gc-sections -Wl,-O1)
  if(ORVANTA_CLI_LINK_EFFECTIVE STREQUAL "static-pie")
    target_link_options(${target} PRIVATE -static-pie)
    if(ORVANTA_LLD_EFFECTIVE)
      target_link_options(${target} PRIVATE -Wl,--pack-dyn-relocs=relr)
    endif()
  elseif(ORVANTA_CLI_LINK_EFFECTIVE STREQUAL "static")
    set_target_properties(${target} PROPERTIES POSITION_INDEPENDENT_CODE OFF)
    target_link_options(${target} PRIVATE -static -no-pie)
  endif()
endfunction()
