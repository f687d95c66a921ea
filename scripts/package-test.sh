#!/usr/bin/env bash
# Checks the installed package the way client projects use it: installs Vastrel (release, no
# tests, with the Java binding) into a temporary prefix, then
# - builds and runs the C++ consumer in tests/package/consumer through find_package(vastrel
#   CONFIG) and through pkg-config;
# - builds the C app tests/package/apps/app.c through find_package(vastrel-c CONFIG) and
#   through pkg-config (vastrel-c), and runs it plainly, under valgrind and under ASan;
# - installs the Python package with pip, offline, into a virtual environment and runs
#   tests/package/apps/app.py against the installed library;
# - compiles and runs tests/package/apps/App.java, and the Kotlin example of docs/apps.md with
#   Debian's kotlin, against the installed jar and JNI library;
# - runs the installed tool.
# Each app decodes, reads strictly, explains, builds a receipt and tells a brand, on four
# threads at once, and checks that bad input is refused. Exits non-zero on any failure.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

./scripts/setup.sh java test valgrind kotlin

work=$(mktemp -d "${TMPDIR:-/tmp}/vastrel-package.XXXXXX")
trap 'rm -rf "$work"' EXIT
prefix="$work/prefix"
consumer="$root/tests/package/consumer"
expected="$consumer/expected-output.txt"

echo "==> package: build and install into a temporary prefix"
cmake -S "$root" -B "$work/build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DVASTREL_BUILD_TESTS=OFF -DVASTREL_BUILD_BENCH=OFF -DVASTREL_BUILD_JAVA=ON \
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

apps="$root/tests/package/apps"
libdir=$(dirname "$(find "$prefix" -name 'libvastrel.so' -print -quit)")

echo "==> package: C app through find_package(vastrel-c CONFIG), plain and under valgrind"
cmake -S "$root/tests/package/c-consumer" -B "$work/c-consumer" -G Ninja \
    -DCMAKE_BUILD_TYPE=Debug -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$work/c-consumer"
LD_LIBRARY_PATH="$libdir" "$work/c-consumer/vastrel_app"
LD_LIBRARY_PATH="$libdir" valgrind --quiet --error-exitcode=1 --leak-check=full \
    "$work/c-consumer/vastrel_app"

echo "==> package: C app through pkg-config (vastrel-c), under AddressSanitizer"
read -r -a c_cflags <<<"$(pkg-config --cflags vastrel-c)"
read -r -a c_libs <<<"$(pkg-config --libs vastrel-c)"
"${CC:-gcc}" -std=c99 -Wall -Wextra -pedantic -Werror -fsanitize=address,undefined -g \
    "${c_cflags[@]}" "$apps/app.c" -o "$work/app-asan" "${c_libs[@]}" -lpthread
LD_LIBRARY_PATH="$libdir" ASAN_OPTIONS=detect_leaks=1 "$work/app-asan"

echo "==> package: Python package installed with pip, offline"
/usr/bin/python3 -m venv --system-site-packages "$work/venv"
"$work/venv/bin/pip" install --quiet --no-index --no-build-isolation "$root/bindings/python"
(cd "$work" && VASTREL_LIBRARY="$libdir/libvastrel.so" "$work/venv/bin/python" "$apps/app.py")

echo "==> package: Java app against the installed jar and JNI library"
jar=$(find "$prefix" -name 'vastrel.jar' -print -quit)
[[ -n "$jar" ]] || { echo "package-test: vastrel.jar was not installed" >&2; exit 1; }
/usr/bin/python3 -c 'import sys, zipfile; sys.stdout.write(zipfile.ZipFile(sys.argv[1]).read("META-INF/MANIFEST.MF").decode())' "$jar" |
    grep -q "Implementation-Version: 2" ||
    { echo "package-test: vastrel.jar has no version in its manifest" >&2; exit 1; }
[[ -f "$(dirname "$jar")/vastrel-sources.jar" ]] ||
    { echo "package-test: vastrel-sources.jar was not installed" >&2; exit 1; }
readelf -d "$libdir/libvastrel_jni.so" | grep -q 'RUNPATH.*\$ORIGIN' ||
    { echo "package-test: libvastrel_jni.so does not look beside itself" >&2; exit 1; }
javac -d "$work/java" -cp "$jar" "$apps/App.java"
java -cp "$work/java:$jar" -Djava.library.path="$libdir" App

echo "==> package: the Kotlin example of docs/apps.md, with Debian's kotlin"
/usr/bin/python3 - "$root/docs/apps.md" "$work/App.kt" <<'PY'
import sys
text = open(sys.argv[1], encoding="utf-8").read()
start = text.index("```kotlin\n") + len("```kotlin\n")
open(sys.argv[2], "w", encoding="utf-8").write(text[start:text.index("```", start)])
PY
kotlinc "$work/App.kt" -cp "$jar" -d "$work/kotlin-app.jar" 2>&1 | grep -v 'deprecated in JDK' || true
[[ -f "$work/kotlin-app.jar" ]] || { echo "package-test: the Kotlin example did not compile" >&2; exit 1; }
java -cp "$work/kotlin-app.jar:/usr/share/java/kotlin-stdlib.jar:$jar" \
    -Djava.library.path="$libdir" AppKt | grep -qx VISA

echo "==> package: installed tool"
"$prefix/bin/vastrel" --version
"$prefix/bin/vastrel" receipt >/dev/null

echo "package test passed"
