# WebAssembly with Debian's emscripten. Programs are run by Node.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
list(APPEND CMAKE_FIND_ROOT_PATH ${CMAKE_PREFIX_PATH}) # packages that the user names are of the target

# C++ exceptions are off by default there; the tests and the examples use them.
set(CMAKE_CXX_FLAGS_INIT -fexceptions)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fexceptions -sALLOW_MEMORY_GROWTH=1 -sEXIT_RUNTIME=1 -sNODERAWFS=1 -sINITIAL_MEMORY=64MB")

# This emscripten is older than Node's own fetch(), which it takes for a browser's.
find_program(ALIDADE_NODE NAMES node nodejs REQUIRED)
set(CMAKE_CROSSCOMPILING_EMULATOR "${ALIDADE_NODE};--no-experimental-fetch")
