# 64-bit ARM Linux (aarch64-linux-gnu): LP64 like Android's arm64-v8a.
#
#   cmake -S . -B build/arm64 -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/arm64.cmake
#
# Needs g++-aarch64-linux-gnu, qemu-user and the arm64 packages android-liblog-dev,
# libgtest-dev, libgmock-dev: ./scripts/test.sh --arch arm64 installs them.
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(RVA_CROSS_TRIPLET aarch64-linux-gnu)
set(RVA_CROSS_QEMU qemu-aarch64)
include("${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake")
