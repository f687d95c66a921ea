#!/usr/bin/env bash
# Builds Vastrel and runs the whole test suite: in the release build (with the Java
# binding's tests), and in the debug build under AddressSanitizer and
# UndefinedBehaviorSanitizer. Then the slower checks: the suite under ThreadSanitizer, cross
# built for aarch64 and 32-bit ARM and run under qemu, under valgrind's memcheck, every
# fuzzer for a few seconds, and a build of a separate project against the installed package.
#
#   scripts/test.sh           everything (what CI runs)
#   scripts/test.sh --quick   release and ASan+UBSan only
set -euo pipefail
cd "$(dirname "$0")/.."

quick=false
if [[ "${1:-}" == "--quick" ]]; then quick=true; fi

if $quick; then ./scripts/setup.sh java test; else ./scripts/setup.sh java test fuzz valgrind cross; fi

run_preset() {
    local preset=$1
    echo "==> ${preset}: configure and build"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
    echo "==> ${preset}: test"
    ctest --preset "$preset"
}

run_preset release
run_preset dev
if $quick; then exit 0; fi

run_preset tsan
run_preset cross-arm64
run_preset cross-armhf
if [[ -x scripts/memcheck.sh ]]; then echo "==> memcheck"; ./scripts/memcheck.sh; fi
if [[ -x scripts/fuzz.sh ]]; then echo "==> fuzz"; ./scripts/fuzz.sh; fi
if [[ -x scripts/package-test.sh ]]; then echo "==> installed package"; ./scripts/package-test.sh; fi
echo "==> all checks passed"
