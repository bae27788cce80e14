# Cross-compiling for 64-bit Windows with Debian's mingw-w64 (g++-mingw-w64-x86-64-posix);
# programs built here run on Linux under wine64, which CTest puts in front of every test.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW_PREFIX}-windres)

set(CMAKE_FIND_ROOT_PATH /usr/${MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Linked statically, the programs need no MinGW runtime DLLs beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

find_program(WINE64 NAMES wine64 wine PATHS /usr/lib/wine)
if(WINE64)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${WINE64})
endif()
