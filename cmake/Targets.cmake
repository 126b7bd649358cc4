# The kinds of target that this project has. A folder is a target and links only what it may use; see README.md.

set(EXPLORER_WARNINGS -Wall -Wextra -Wpedantic -Werror)
option(EXPLORER_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer (native builds)" OFF)
option(EXPLORER_FUZZ "Build the fuzz targets (native builds with clang)" OFF)
set(EXTRA_TESTS_DIR "" CACHE PATH "A directory outside the tree whose *_test.cpp files are built as tests too")

if(WIN32)
  # Debug information that Wine's backtraces can read.
  set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1 -gdwarf-4")
  set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
endif()

function(explorer_target_defaults target)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_compile_options(${target} PRIVATE ${EXPLORER_WARNINGS})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR})
  if(WIN32)
    target_compile_definitions(${target} PRIVATE WIN32_LEAN_AND_MEAN NOMINMAX STRICT _WIN32_WINNT=0x0601 WINVER=0x0601 _WIN32_IE=0x0700)
  elseif(EXPLORER_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # A part of a buffer that reaches beyond its contents, but not beyond its memory, is seen only by the library.
    target_compile_definitions(${target} PUBLIC _GLIBCXX_ASSERTIONS)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
    if(EXPLORER_FUZZ)
      target_compile_options(${target} PUBLIC -fsanitize=fuzzer-no-link)
      target_link_options(${target} PUBLIC -fsanitize=fuzzer-no-link)
    endif()
  endif()
endfunction()

# Most of the time that a file takes to compile goes into the same few headers: they are compiled once.
# -DEXPLORER_SHARED_HEADERS=OFF shows whether each file still names everything that it needs.
option(EXPLORER_SHARED_HEADERS "Compile the headers that most files share only once" ON)

# explorer_shared_headers(NAME HEADERS...): a target that compiles the headers, for explorer_use_headers.
function(explorer_shared_headers name)
  add_library(${name} OBJECT ${PROJECT_SOURCE_DIR}/cmake/${name}.cpp)
  explorer_target_defaults(${name})
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()
function(explorer_use_headers target headers)
  if(NOT EXPLORER_SHARED_HEADERS)
    return()
  endif()
  target_precompile_headers(${target} REUSE_FROM ${headers})
  # Once system headers are precompiled, GCC 12 gives its false alarms about their inlined copies, too.
  target_compile_options(${target} PRIVATE
    $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-stringop-overread -Wno-stringop-overflow>)
endfunction()

set(EXPLORER_STANDARD_HEADERS <algorithm> <array> <functional> <memory> <optional> <string> <string_view> <utility>
  <vector>)
if(EXPLORER_SHARED_HEADERS)
  explorer_shared_headers(logic_headers ${EXPLORER_STANDARD_HEADERS})
  if(WIN32)
    explorer_shared_headers(window_headers <windows.h> <commctrl.h> <ocidl.h> <shlobj.h> ${EXPLORER_STANDARD_HEADERS})
  endif()
endif()

# explorer_logic_library(NAME SOURCES ... [LINKS ...])
# Decisions without windows.h: compiled natively with sanitizers and into the Windows binaries.
function(explorer_logic_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  explorer_target_defaults(${name})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS})
  explorer_use_headers(${name} logic_headers)
endfunction()

function(explorer_use_window_headers target)
  explorer_use_headers(${target} window_headers)
endfunction()

# explorer_window_library(NAME SOURCES ... [LINKS ...])
# Code that uses Windows; exists in the Windows builds only.
function(explorer_window_library name)
  if(NOT WIN32)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  explorer_target_defaults(${name})
  target_link_libraries(${name} PUBLIC ${ARG_LINKS})
  explorer_use_window_headers(${name})
endfunction()

# A DLL or program whose only run-time needs are Windows and the project's own libraries.
function(explorer_binary_defaults target)
  explorer_target_defaults(${target})
  target_link_options(${target} PRIVATE -static -Wl,--no-insert-timestamp $<$<CONFIG:Release>:-s>)
  set_target_properties(${target} PROPERTIES
    PREFIX ""
    RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin
    LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib
    ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
endfunction()
