#!/usr/bin/env bash
# Times the nested decoder through the Java binding on bench/data/emv_flat.hex, to set
# beside decodeWithTLVString/flat/log_off and capi/decode/flat/log_off from bench/run.sh.
# Not part of the tests: timings belong to benchmarks.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/setup.sh java
cmake --preset release >/dev/null
cmake --build --preset release --target vastrel_java vastrel_jni

build=build/release/bindings/java
classes="$build/timing"
mkdir -p "$classes"
javac --release 17 -d "$classes" -cp "$build/vastrel.jar" bindings/java/bench/DecodeTiming.java
exec java -Dvastrel.jni.library="$PWD/$build/libvastrel_jni.so" -cp "$build/vastrel.jar:$classes" \
    DecodeTiming bench/data/emv_flat.hex
