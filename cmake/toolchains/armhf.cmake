# 32-bit ARM hard-float Linux (the armeabi-v7a class) with Debian's cross compiler and
# multiarch packages. Test programs run under qemu-user.
#
# Debian's default FPU (no NEON) is kept on purpose: with -mfpu=neon, GCC 12 loads the
# decimal library's 16-byte-aligned results with 128-bit-aligned NEON loads from a stack that
# it only keeps 8-byte aligned, and the loads fault (SIGBUS). So this build runs the scalar
# hex path; the NEON path runs in the arm64 build.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
# GCC notes every std::map iterator whose argument passing changed in GCC 7.1; nothing here
# links against code built before that.
set(CMAKE_CXX_FLAGS_INIT "-Wno-psabi")
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
# The test programs run with the cross compiler's loader and C library, from /usr/arm-linux-gnueabihf.
# libmbedtls-dev:armhf also installs Debian's libc6:armhf, of another build, in
# /lib/arm-linux-gnueabihf; the loader would find that C library first and the two do not mix
# (pthread_create faults), so the cross directory comes first on the library path.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm
    -L /usr/arm-linux-gnueabihf -E LD_LIBRARY_PATH=/usr/arm-linux-gnueabihf/lib)
