# orvanta_add_gtest(NAME SOURCES ... LIBS ... [LABELS ...] [RESOURCE_LOCK ...])
# builds one GoogleTest executable and registers it as one ctest test.
find_package(GTest REQUIRED)

function(orvanta_add_gtest name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;LABELS;RESOURCE_LOCK" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gmock GTest::gtest_main orvanta_warnings)
  target_compile_definitions(${name} PRIVATE
    ORVANTA_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
    ORVANTA_BINARY_DIR="${CMAKE_BINARY_DIR}")
  add_test(NAME ${name} COMMAND ${name})
  if(ARG_LABELS)
    set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABELS}")
  endif()
  if(ARG_RESOURCE_LOCK)
    set_tests_properties(${name} PROPERTIES RESOURCE_LOCK "${ARG_RESOURCE_LOCK}")
  endif()
endfunction()
