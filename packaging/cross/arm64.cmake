# For the 64-bit ARM computer, with Debian's cross toolchain and Qt of that architecture beside ours.
# CMAKE_FIND_ROOT_PATH stays unset: with it Qt is not found, which stands in the same root as everything.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/qemu-aarch64-static)
