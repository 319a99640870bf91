# One place for the language level, the warnings and the numeric rules of every target.
include_guard(GLOBAL)

find_program(KIRO_CCACHE ccache)
if(KIRO_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${KIRO_CCACHE}")
endif()

# Release is -O2 for everybody; assertions are Qt's and go with QT_NO_DEBUG.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG -DQT_NO_DEBUG")

# Said outright, so that tools which read the compile commands know it too.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

add_library(kiro_options INTERFACE)
target_compile_options(kiro_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow
  # Results must be the same doubles on every machine: no fused multiply-add.
  -ffp-contract=off
  # Messages in the log name files as they stand in the tree, not on the builder's disk.
  "-fmacro-prefix-map=${CMAKE_SOURCE_DIR}/="
  $<$<BOOL:${KIRO_WARNINGS_AS_ERRORS}>:-Werror>
  $<$<BOOL:${KIRO_COVERAGE}>:--coverage>)
target_link_options(kiro_options INTERFACE $<$<BOOL:${KIRO_COVERAGE}>:--coverage>)
target_compile_definitions(kiro_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x050f00
  # Release builds keep file, line and function of a message too.
  QT_MESSAGELOGCONTEXT)
if(KIRO_SANITIZE)
  target_compile_options(kiro_options INTERFACE
    -fsanitize=${KIRO_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(kiro_options INTERFACE -fsanitize=${KIRO_SANITIZE})
endif()

# kiro_add_library(NAME SOURCE...): a static library of this project; its folder is its include path.
function(kiro_add_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC kiro_options)
endfunction()

# kiro_add_forms(TARGET FILE...): headers of forms. Unlike AUTOUIC a rule for each: what includes a form is built
# anew in the same run in which the form has changed.
function(kiro_add_forms target)
  qt5_wrap_ui(headers ${ARGN})
  set_source_files_properties(${headers} PROPERTIES SKIP_AUTOGEN ON)
  target_sources(${target} PRIVATE ${headers})
  target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
  # What AUTOUIC left in a build folder would be found first.
  file(GLOB stale "${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/include/ui_*.h")
  if(stale)
    file(REMOVE ${stale})
  endif()
endfunction()
