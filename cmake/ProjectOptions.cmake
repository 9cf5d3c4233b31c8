# One interface target, wb_options, that every target of the project links privately: the language
# level, warnings as errors, hidden symbols, and the instrumentation that a preset asks for.
option(WB_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(WB_SANITIZE_THREADS "Build with the thread sanitizer" OFF)
option(WB_COVERAGE "Build with branch coverage" OFF)
option(WB_FUZZ "Build the fuzz targets (clang only)" OFF)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
  # Precompiled headers are compared by their contents; the tests use some.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE_PROGRAM})
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(wb_options INTERFACE)
target_include_directories(wb_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(wb_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Wcast-qual
  -Woverloaded-virtual -Werror)
# g++ 12 warns of overlapping copies in its own std::string when it optimises (GCC bug 105651).
target_compile_options(wb_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(WB_SANITIZE)
  target_compile_options(wb_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(wb_options INTERFACE -fsanitize=address,undefined)
endif()
if(WB_SANITIZE_THREADS)
  target_compile_options(wb_options INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(wb_options INTERFACE -fsanitize=thread)
endif()
if(WB_FUZZ)
  target_compile_options(wb_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(WB_COVERAGE)
  target_compile_options(wb_options INTERFACE --coverage -fprofile-abs-path)
  target_link_options(wb_options INTERFACE --coverage)
endif()
