#!/usr/bin/env bash
# Checks the installed package the way a client project uses it: installs Vastrel (release,
# no tests) into a temporary prefix, then builds and runs the small consumer project in
# tests/package/consumer against it, once through find_package(vastrel CONFIG) and once
# through pkg-config, and runs the installed tool. Exits non-zero on any failure.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

./scripts/setup.sh

work=$(mktemp -d "${TMPDIR:-/tmp}/vastrel-package.XXXXXX")
trap 'rm -rf "$work"' EXIT
prefix="$work/prefix"
consumer="$root/tests/package/consumer"
expected="$consumer/expected-output.txt"

echo "==> package: build and install into a temporary prefix"
cmake -S "$root" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DVASTREL_BUILD_TESTS=OFF -DVASTREL_BUILD_BENCH=OFF \
    -DCMAKE_INSTALL_PREFIX="$prefix" >/dev/null
cmake --build "$work/build"
cmake --install "$work/build" >/dev/null

echo "==> package: the installed umbrella header names every installed header"
cmake -DINCLUDE_DIR="$prefix/include" -P "$root/tests/package/CheckUmbrella.cmake"

echo "==> package: consumer through find_package(vastrel CONFIG)"
cmake -S "$consumer" -B "$work/consumer-cmake" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/consumer-cmake"
"$work/consumer-cmake/vastrel_consumer" >"$work/cmake-output.txt"
diff -u "$expected" "$work/cmake-output.txt"

echo "==> package: consumer through pkg-config"
pc_file=$(find "$prefix" -name vastrel.pc -print -quit)
[[ -n "$pc_file" ]] || { echo "package-test: vastrel.pc was not installed" >&2; exit 1; }
export PKG_CONFIG_PATH="$(dirname "$pc_file")"
read -r -a cflags <<<"$(pkg-config --cflags vastrel)"
read -r -a libs <<<"$(pkg-config --libs vastrel)"
"${CXX:-g++}" -std=c++20 "${cflags[@]}" "$consumer/main.cpp" -o "$work/consumer-pkgconfig" \
    "${libs[@]}"
"$work/consumer-pkgconfig" >"$work/pkgconfig-output.txt"
diff -u "$expected" "$work/pkgconfig-output.txt"

echo "==> package: installed tool"
"$prefix/bin/vastrel" --version
"$prefix/bin/vastrel" receipt >/dev/null

echo "package test passed"
