# Windows, by the compiler whose library needs the system alone: the other one (-posix) brings its own threads
# into the DLL, with calls that came with Windows Vista and a handler that the whole host shares.
set(CMAKE_SYSTEM_NAME Windows)
set(triple ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-win32)
set(CMAKE_CXX_COMPILER ${triple}-g++-win32)
set(CMAKE_RC_COMPILER ${triple}-windres)
set(CMAKE_DLLTOOL ${triple}-dlltool)
set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../scripts/wine)
