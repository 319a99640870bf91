include_guard(GLOBAL)
include(GoogleTest)

# kiro_add_test(NAME LABEL SOURCES file... [LIBS target...] [TIMEOUT seconds])
# A GoogleTest program whose tests ctest runs one by one, without a display and away from the user's files.
# LABEL is unit, window or endtoend.
function(kiro_add_test name label)
  cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBS;DEFINITIONS" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 60)
  endif()
  add_executable(${name} ${arg_SOURCES})
  # Everything of one kind, such as unit_tests.
  if(NOT TARGET ${label}_tests)
    add_custom_target(${label}_tests)
  endif()
  add_dependencies(${label}_tests ${name})
  target_link_libraries(${name} PRIVATE ${arg_LIBS} kirotestsupport GTest::gmock)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE
    KIRO_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data" ${arg_DEFINITIONS})
  gtest_discover_tests(${name}
    TEST_PREFIX "${name}."
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS ${label} TIMEOUT ${arg_TIMEOUT})
  # gtest_discover_tests would flatten a property that is a list.
  set(environment_file "${CMAKE_CURRENT_BINARY_DIR}/${name}_environment.cmake")
  file(WRITE "${environment_file}"
    "foreach(test IN LISTS ${name}_TESTS)\n"
    "  set_tests_properties(\"\${test}\" PROPERTIES ENVIRONMENT \"${KIRO_TEST_ENVIRONMENT}\")\n"
    "endforeach()\n")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${environment_file}")
endfunction()
