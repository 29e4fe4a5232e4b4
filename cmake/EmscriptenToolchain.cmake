# A browser, by Debian's emscripten: its own toolchain file, found beside its compiler.
find_program(EMXX em++ REQUIRED)
execute_process(COMMAND em-config EMSCRIPTEN_ROOT OUTPUT_VARIABLE EMSCRIPTEN_ROOT_PATH
  OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)  # libraries of headers alone serve any system
include("${EMSCRIPTEN_ROOT_PATH}/cmake/Modules/Platform/Emscripten.cmake")

set(CMAKE_CXX_FLAGS_INIT "-fwasm-exceptions -include \"${CMAKE_CURRENT_LIST_DIR}/EmscriptenLibrary.h\"")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fwasm-exceptions")
# Its linker asks node for a module of Debian's, which a node from elsewhere does not find by itself.
set_property(GLOBAL PROPERTY RULE_LAUNCH_LINK "${CMAKE_COMMAND} -E env NODE_PATH=/usr/share/nodejs")
# node reads the WebAssembly beside a program by fetch(), if it has one, and cannot.
set(CMAKE_CROSSCOMPILING_EMULATOR node --no-experimental-fetch)
