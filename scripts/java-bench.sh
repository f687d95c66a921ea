#!/usr/bin/env bash
# Times the strict decoder through the Java binding and the Python package on
# bench/data/emv_flat.hex, then the C++ floors and the C interface's decode in the same
# session, so that the ratios are taken on one machine at one time. Not part of the tests:
# timings belong to benchmarks.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/setup.sh java test
cmake --preset release >/dev/null
cmake --build --preset release --target vastrel_java vastrel_jni vastrel_bench

build=build/release/bindings/java
classes="$build/timing"
mkdir -p "$classes"
javac --release 17 -d "$classes" -cp "$build/vastrel.jar" bindings/java/bench/DecodeTiming.java
java -Dvastrel.jni.library="$PWD/$build/libvastrel_jni.so" -cp "$build/vastrel.jar:$classes" \
    DecodeTiming bench/data/emv_flat.hex
PYTHONPATH=bindings/python VASTREL_LIBRARY="$PWD/build/release/libvastrel.so" \
    /usr/bin/python3 bench/python_decode.py bench/data/emv_flat.hex
./build/release/bench/vastrel_bench --benchmark_filter='floor|capi/decode' \
    --benchmark_repetitions=15 --benchmark_report_aggregates_only=true
