# Cross build for 64-bit Windows with mingw-w64 GCC (posix threads). Tests run through Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

find_program(MINGW_CXX NAMES x86_64-w64-mingw32-g++-posix x86_64-w64-mingw32-g++ REQUIRED)
find_program(MINGW_C NAMES x86_64-w64-mingw32-gcc-posix x86_64-w64-mingw32-gcc REQUIRED)
find_program(MINGW_RC NAMES x86_64-w64-mingw32-windres REQUIRED)
set(CMAKE_CXX_COMPILER ${MINGW_CXX})
set(CMAKE_C_COMPILER ${MINGW_C})
set(CMAKE_RC_COMPILER ${MINGW_RC})

set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tools/run-in-wine.sh)
