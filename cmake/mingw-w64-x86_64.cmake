# Cross-builds for 64-bit Windows with Debian's mingw-w64 (g++-mingw-w64-x86-64-posix).
# The posix thread model is the one whose libstdc++ has std::thread and std::mutex in GCC 12.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(ZV_MINGW_PREFIX x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${ZV_MINGW_PREFIX}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ZV_MINGW_PREFIX}-g++-posix)
set(CMAKE_RC_COMPILER ${ZV_MINGW_PREFIX}-windres)

# Target libraries and headers come only from the mingw-w64 sysroot, programs from the host.
set(CMAKE_FIND_ROOT_PATH /usr/${ZV_MINGW_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The compiler's runtime (libstdc++, libgcc, winpthread) goes inside each .exe, so a program
# copied alone to a Windows machine, or run under Wine from the build folder, finds no DLL missing.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

# Test programs run under Wine on the build machine (see scripts/test-windows for its setup).
find_program(ZV_WINE NAMES wine wine64)
if(ZV_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${ZV_WINE})
endif()
