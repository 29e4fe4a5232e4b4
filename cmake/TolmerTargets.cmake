# One function for each kind of target. A folder is a target: it takes every source in its folder
# and links only what it names, so an include against the arrows of docs/architecture.md fails.

# Clang counts an int as index of a vector among the conversions, GCC does not; without it both mean
# the same.
add_library(tolmer_options INTERFACE)
target_compile_options(tolmer_options INTERFACE
  -Wall -Wextra -Wconversion -Wno-sign-conversion -Werror -ffp-contract=off)
target_include_directories(tolmer_options INTERFACE "${CMAKE_SOURCE_DIR}/src")
if(TOLMER_SANITIZE)
  target_compile_options(tolmer_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tolmer_options INTERFACE -fsanitize=address,undefined)
endif()

if(TOLMER_FUZZ)
  target_compile_options(tolmer_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# The programs and tests of a browser's build run under node, on the machine's own files. Only one
# source sees the headers that read and write its numbers.
if(EMSCRIPTEN)
  find_path(FAST_FLOAT fast_float_all.h PATHS /usr/include PATH_SUFFIXES fast_float
    REQUIRED NO_CMAKE_FIND_ROOT_PATH)
  find_path(DRAGONBOX dragonbox/dragonbox.h PATHS /usr/include PATH_SUFFIXES dragonbox-1.1.3
    REQUIRED NO_CMAKE_FIND_ROOT_PATH)
  add_library(emscripten_library STATIC "${CMAKE_CURRENT_LIST_DIR}/EmscriptenLibrary.cpp")
  target_include_directories(emscripten_library SYSTEM PRIVATE "${FAST_FLOAT}" "${DRAGONBOX}")
  target_link_libraries(tolmer_options INTERFACE emscripten_library)
  set(TOLMER_NODE_OPTIONS -sNODERAWFS -sEXIT_RUNTIME -sALLOW_MEMORY_GROWTH -sENVIRONMENT=node)
endif()

# tolmer_library(NAME LINKS target...)
function(tolmer_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS")
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp")
  if(sources)
    add_library(tolmer_${name} STATIC ${sources})
    target_link_libraries(tolmer_${name} PUBLIC tolmer_options ${arg_LINKS})
  else()
    add_library(tolmer_${name} INTERFACE)
    target_link_libraries(tolmer_${name} INTERFACE tolmer_options ${arg_LINKS})
  endif()
endfunction()

# tolmer_program(NAME LINKS target... [INSTALL folder]): src/programs/NAME.cpp, put beside the
# compiled notebook, and into bin by an installation.
function(tolmer_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "INSTALL" "LINKS")
  if(NOT arg_INSTALL)
    set(arg_INSTALL bin)
  endif()
  if(NOT EXISTS "${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp")
    return()
  endif()
  add_executable(${name} "${name}.cpp")
  target_link_libraries(${name} PRIVATE tolmer_options ${arg_LINKS})
  target_link_options(${name} PRIVATE ${TOLMER_NODE_OPTIONS})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${TOLMER_PROGRAM_FOLDER}")
  install(TARGETS ${name} RUNTIME DESTINATION "${arg_INSTALL}")
endfunction()

# One precompiled header serves all test targets.
add_library(tolmer_test_headers INTERFACE)

# tolmer_test(NAME LINKS target... [ENVIRONMENT var=value...] [NO_SHARED_HEADERS]): all *.cpp of
# tests/NAME. A target compiled with other flags, as Qt asks for, cannot share the header.
function(tolmer_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "NO_SHARED_HEADERS" "" "LINKS;ENVIRONMENT")
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp")
  if(CMAKE_CROSSCOMPILING)
    list(FILTER sources EXCLUDE REGEX "_posix_test\\.cpp$")
  endif()
  if(NOT sources)
    return()
  endif()
  add_executable(${name}_test ${sources})
  target_include_directories(${name}_test PRIVATE
    "${CMAKE_SOURCE_DIR}/tests" "${CMAKE_BINARY_DIR}/generated")
  target_link_libraries(${name}_test PRIVATE tolmer_options ${arg_LINKS} GTest::gmock
    GTest::gtest_main)
  target_link_options(${name}_test PRIVATE ${TOLMER_NODE_OPTIONS})
  if(TARGET tolmer_test_pch AND NOT arg_NO_SHARED_HEADERS)
    target_precompile_headers(${name}_test REUSE_FROM tolmer_test_pch)
  endif()
  if(CMAKE_CROSSCOMPILING)  # a start takes long there
    add_test(NAME ${name} COMMAND ${name}_test "--gtest_filter=-${TOLMER_TESTS_ELSEWHERE}")
    return()
  endif()
  gtest_discover_tests(${name}_test DISCOVERY_MODE PRE_TEST
    PROPERTIES TIMEOUT 300 ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()
