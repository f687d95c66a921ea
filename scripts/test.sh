#!/usr/bin/env bash
# Builds Vastrel and runs the whole test suite twice: in the release build and in the
# debug build under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/setup.sh

for preset in release dev; do
    echo "==> ${preset}: configure and build"
    cmake --preset "$preset" >/dev/null
    cmake --build --preset "$preset"
    echo "==> ${preset}: test"
    ctest --preset "$preset"
done
