#!/usr/bin/env bash
# Writes abi/libvastrel-x86_64.abi, the C interface's ABI as libabigail's abidw reads it from
# the release build's libvastrel.so. The ABI test (CApi.AbiMatchesBaseline) compares the
# library with it, so any change to the interface's functions or types is a deliberate one:
# run this after such a change, and bump VASTREL_VERSION_MAJOR if the change breaks callers.
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/setup.sh test
cmake --preset release >/dev/null
cmake --build --preset release --target vastrel_c
abidw --headers-dir include/vastrel --drop-private-types --exported-interfaces-only \
    --no-corpus-path --out-file abi/libvastrel-x86_64.abi build/release/libvastrel.so
echo "wrote abi/libvastrel-x86_64.abi"
