# Builds for Windows on Debian, and runs what it built under Wine: for 64 bits, or for the machine
# that whoever includes this has named.
if(NOT machine)
  set(machine x86_64)
  set(emulator ${CMAKE_CURRENT_LIST_DIR}/wine-run.sh)
endif()
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${machine})
set(CMAKE_C_COMPILER ${machine}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${machine}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${machine}-w64-mingw32-windres)

# Programs carry their runtime with them: they need no DLL that is not part of Windows.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)

# Tools come from this machine; libraries, headers and packages never do.
set(CMAKE_FIND_ROOT_PATH /usr/${machine}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${emulator} ${CMAKE_BINARY_DIR}/wine)
