# 32-bit ARM Linux, hard-float (arm-linux-gnueabihf): ILP32 like Android's armeabi-v7a,
# where long and pointers are 32 bits.
#
#   cmake -S . -B build/armhf -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/armhf.cmake
#
# Needs g++-arm-linux-gnueabihf, qemu-user and the armhf packages android-liblog-dev,
# libgtest-dev, libgmock-dev: ./scripts/test.sh --arch armhf installs them.
set(CMAKE_SYSTEM_PROCESSOR arm)
set(RVA_CROSS_TRIPLET arm-linux-gnueabihf)
set(RVA_CROSS_QEMU qemu-arm)
include("${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake")
