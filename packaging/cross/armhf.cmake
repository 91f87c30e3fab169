# For the 32-bit ARM computer with a floating-point unit; see arm64.cmake.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/qemu-arm-static)
# The compiler reminds us that GCC 7.1 changed how some parameters are passed; nothing of ours is that old.
set(CMAKE_CXX_FLAGS_INIT "-Wno-psabi")
