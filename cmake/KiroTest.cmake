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
  target_link_libraries(${name} PRIVATE ${arg_LIBS} kirotestsupport GTest::gmock)
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE
    KIRO_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data" ${arg_DEFINITIONS})
  gtest_discover_tests(${name}
    TEST_PREFIX "${name}."
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS ${label} TIMEOUT ${arg_TIMEOUT} ENVIRONMENT "${KIRO_TEST_ENVIRONMENT}")
endfunction()
