# Common part of the cross toolchain files: Debian's cross compiler for
# RVA_CROSS_TRIPLET, liblog and GoogleTest from Debian's packages of that architecture
# (multiarch, under /usr/lib/<triplet>), and qemu-user to run what is built.
#
# Set RVA_CROSS_TRIPLET, CMAKE_SYSTEM_PROCESSOR and RVA_CROSS_QEMU, then include this file.
set(CMAKE_SYSTEM_NAME Linux)

set(CMAKE_C_COMPILER ${RVA_CROSS_TRIPLET}-gcc)
set(CMAKE_CXX_COMPILER ${RVA_CROSS_TRIPLET}-g++)
# find_library(), find_path() and find_package() then look in /usr/lib/<triplet>: the
# target's liblog (android/liblog.so) and GoogleTest (static libraries and CMake package).
set(CMAKE_LIBRARY_ARCHITECTURE ${RVA_CROSS_TRIPLET})
# Never the build machine's own copies of those.
set(RVA_HOST_LIBDIR /usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu)
list(APPEND CMAKE_IGNORE_PATH ${RVA_HOST_LIBDIR} ${RVA_HOST_LIBDIR}/android ${RVA_HOST_LIBDIR}/cmake/GTest)

# Target programs run under user-mode emulation: the tests' discovery at build time
# (gtest_discover_tests) and every test whose command is a target of the build (ctest).
# The C library and the C++ runtime come from the cross compiler's tree; liblog from the
# target's multiarch directory, through the RUNPATH of each program.
set(CMAKE_CROSSCOMPILING_EMULATOR ${RVA_CROSS_QEMU} -L /usr/${RVA_CROSS_TRIPLET})
