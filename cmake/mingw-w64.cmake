# Builds for 64-bit Windows with Debian's g++-mingw-w64-x86-64-posix; what is built runs alone, without the compiler's DLLs.
# XMLCONFIG_WINDOWS_PREFIX names the folder that holds the dependencies built for Windows (cmake/windows/dependencies.sh makes it).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES XMLCONFIG_WINDOWS_PREFIX)
list(PREPEND CMAKE_FIND_ROOT_PATH ${XMLCONFIG_WINDOWS_PREFIX} /usr/x86_64-w64-mingw32)
list(REMOVE_DUPLICATES CMAKE_FIND_ROOT_PATH)
list(PREPEND CMAKE_PREFIX_PATH ${XMLCONFIG_WINDOWS_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_SHARED_LINKER_FLAGS_INIT -static)

# Programs that the build itself runs, such as the discovery of tests, run under Wine.
find_program(XMLCONFIG_WINE NAMES wine64 wine PATHS /usr/lib/wine)
if(XMLCONFIG_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${XMLCONFIG_WINE})
endif()
