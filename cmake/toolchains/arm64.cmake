# aarch64 Linux (the arm64-v8a class) with Debian's cross compiler and multiarch packages.
# Test programs run under qemu-user, with the target's libraries from /usr/aarch64-linux-gnu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)
set(CMAKE_LIBRARY_ARCHITECTURE aarch64-linux-gnu)
# The test programs run with the cross compiler's loader and C library, from /usr/aarch64-linux-gnu.
# libmbedtls-dev:arm64 also installs Debian's libc6:arm64, of another build, in
# /lib/aarch64-linux-gnu; the loader would find that C library first and the two do not mix
# (pthread_create faults), so the cross directory comes first on the library path.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64
    -L /usr/aarch64-linux-gnu -E LD_LIBRARY_PATH=/usr/aarch64-linux-gnu/lib)
