# 32-bit ARM without floating-point hardware, with Debian's g++-arm-linux-gnueabi. Programs are run by qemu-arm.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)

set(CMAKE_C_COMPILER arm-linux-gnueabi-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabi-g++)

set(CMAKE_FIND_ROOT_PATH /usr/arm-linux-gnueabi ${CMAKE_PREFIX_PATH}) # packages that the user names are of the target
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# A processor that indeed has none: the C library would else set the modes of a unit that calculates nothing.
if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
  set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm;-cpu;arm946;-L;/usr/arm-linux-gnueabi)
endif()
