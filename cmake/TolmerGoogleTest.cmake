# GTest::gmock and GTest::gtest_main: Debian's library, or for another system its sources, which Debian
# has, too.
include(GoogleTest)
if(CMAKE_CROSSCOMPILING)
  set(gtest_disable_pthreads "${EMSCRIPTEN}" CACHE BOOL "")
  add_subdirectory(/usr/src/googletest "${CMAKE_BINARY_DIR}/googletest" EXCLUDE_FROM_ALL SYSTEM)
  foreach(library gmock gtest_main)
    if(NOT TARGET GTest::${library})
      add_library(GTest::${library} ALIAS ${library})
    endif()
  endforeach()
else()
  find_package(GTest REQUIRED)
endif()
