# 64-bit Windows programs, built by Debian's MinGW-w64. GoogleTest needs the
# posix thread model.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(TRELIN_MINGW x86_64-w64-mingw32)
include(${CMAKE_CURRENT_LIST_DIR}/mingw.cmake)
