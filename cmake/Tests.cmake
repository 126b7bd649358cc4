# GoogleTest from Debian's source package (found in the usual place or at GTEST_SOURCE_DIR), and the kinds of test.
set(GTEST_SOURCE_DIR /usr/src/googletest CACHE PATH "Sources of GoogleTest")
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
set(gtest_disable_pthreads ON CACHE BOOL "" FORCE)
add_subdirectory(${GTEST_SOURCE_DIR} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)

# Test code runs for a moment and is compiled again and again: it is neither optimised nor does it carry line numbers. What
# it tests is compiled as everywhere else. The names of functions stay, for the frames of a crash.
function(explorer_quickly_built target)
  if(WIN32 AND CMAKE_BUILD_TYPE STREQUAL Debug)
    target_compile_options(${target} PRIVATE -O0 -g0)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL EXECUTABLE)
      target_link_options(${target} PRIVATE -Wl,-S)
    endif()
  endif()
endfunction()
foreach(library gtest gtest_main gmock gmock_main)
  explorer_quickly_built(${library})
endforeach()

# Half of the time that a test file takes to compile goes into the same few headers: they are compiled once a kind of test.
function(explorer_test_headers name)
  add_library(${name} OBJECT ${PROJECT_SOURCE_DIR}/cmake/test_headers.cpp)
  explorer_target_defaults(${name})
  explorer_quickly_built(${name})
  target_link_libraries(${name} PRIVATE gmock gtest)
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()
function(explorer_use_test_headers target headers)
  explorer_quickly_built(${target})
  explorer_use_headers(${target} ${headers})
endfunction()
explorer_test_headers(unit_test_headers
  <algorithm> <array> <functional> <map> <memory> <string> <string_view> <vector> <gmock/gmock.h> <gtest/gtest.h>)
if(WIN32)
  explorer_test_headers(integration_test_headers
    <windows.h> <commctrl.h> <shlobj.h>
    <algorithm> <array> <functional> <map> <memory> <string> <string_view> <vector> <gmock/gmock.h> <gtest/gtest.h>)
endif()

set(EXPLORER_CRASH_PATTERN "Unhandled exception|wine: Unhandled|ERROR: AddressSanitizer|runtime error:")

# explorer_unit_tests(AREA SOURCES ... [LINKS ...])
# Logic tests: one program an area, built natively with sanitizers and again for Windows.
function(explorer_unit_tests area)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  set(target unit_${area})
  add_executable(${target} ${ARG_SOURCES})
  explorer_target_defaults(${target})
  target_link_libraries(${target} PRIVATE ${ARG_LINKS} gmock gtest gtest_main)
  explorer_use_test_headers(${target} unit_test_headers)
  if(WIN32)
    target_link_options(${target} PRIVATE -static)
  endif()
  add_test(NAME ${target} COMMAND ${target})
  set_tests_properties(${target} PROPERTIES TIMEOUT 1800 FAIL_REGULAR_EXPRESSION "${EXPLORER_CRASH_PATTERN}" LABELS unit)
endfunction()

# explorer_integration_tests(AREA SOURCES ... [LINKS ...] [SECONDS n] [BOTH_CODE_PAGES])
# Windows tests under Wine: one program, and one CTest test, an area. Each test case cleans up behind itself: the next
# one runs in the same process. SECONDS: about how long a long one takes, so that it starts early. BOTH_CODE_PAGES: a
# test program speaks the 8-bit code page of the system, as an old host does; the same tests run once more in a program
# whose code page is UTF-8, as that of the workbench is.
function(explorer_integration_tests area)
  if(NOT WIN32)
    return()
  endif()
  cmake_parse_arguments(ARG "BOTH_CODE_PAGES" "SECONDS" "SOURCES;LINKS" ${ARGN})
  set(target integration_${area})
  add_executable(${target} ${ARG_SOURCES})
  explorer_use_test_headers(${target} integration_test_headers)
  explorer_integration_program(${target} "${ARG_LINKS}" "${ARG_SECONDS}")
  if(ARG_BOTH_CODE_PAGES)
    add_executable(${target}_utf8 $<TARGET_OBJECTS:${target}> ${PROJECT_SOURCE_DIR}/tests/support/utf8_process.rc)
    explorer_integration_program(${target}_utf8 "${ARG_LINKS}" "${ARG_SECONDS}")
  endif()
endfunction()
function(explorer_integration_program target links seconds)
  explorer_binary_defaults(${target})
  target_link_libraries(${target} PRIVATE ${links} test_support gmock gtest)
  add_test(NAME ${target} COMMAND ${target} WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
  # It may have to wait for a display; a program that hangs ends itself, or is ended by run-in-wine.sh.
  set_tests_properties(${target} PROPERTIES TIMEOUT 7200 FAIL_REGULAR_EXPRESSION "${EXPLORER_CRASH_PATTERN}"
    LABELS integration ENVIRONMENT EXPLORER_IS_TEST=1)
  if(seconds)
    set_tests_properties(${target} PROPERTIES COST ${seconds})
  endif()
endfunction()
