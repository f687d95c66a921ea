#!/usr/bin/env bash
# Runs every test program of a plain debug build (build/memcheck: no sanitizers, which
# valgrind cannot run alongside) under valgrind's memcheck. Fails on any invalid read or
# write, use of uninitialised memory, bad free, or leak (definite or possible). The tool's
# tests run its commands in-process, so they are checked the same way.
#
# Death tests (gtest names ending in DeathTest) are left out: the child they fork stops
# with std::abort(), on purpose, and memcheck would report what the abort leaves behind.
# So are the resource-limit tests, which hold the vastrel program to a CPU budget that
# valgrind's own slowness would spend.
#
#   scripts/memcheck.sh                  every test program
#   scripts/memcheck.sh codec platform   only vastrel_codec_tests and vastrel_platform_tests
#
# Extra valgrind options come from VALGRIND_OPTS, e.g. VALGRIND_OPTS=--track-origins=yes to
# learn where an uninitialised value came from (slower).
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/setup.sh valgrind
build=build/memcheck
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVASTREL_BUILD_TESTS=ON \
    -DVASTREL_BUILD_TOOLS=ON -DCMAKE_CXX_COMPILER=g++ >/dev/null
cmake --build "$build"

if (($# > 0)); then
    programs=()
    for name in "$@"; do
        programs+=("$(find "$build/tests" -type f -name "vastrel_${name}_tests" | head -1)")
    done
else
    mapfile -t programs < <(find "$build/tests" -type f -perm -u+x -name 'vastrel_*_tests' | sort)
fi
if ((${#programs[@]} == 0)); then
    echo "scripts/memcheck.sh: no test programs found in $build/tests" >&2
    exit 2
fi

logs="$build/valgrind"
rm -rf "$logs"
mkdir -p "$logs"
failed=0
for program in "${programs[@]}"; do
    name=$(basename "$program")
    start=$SECONDS
    status=0
    # One log per process (%p), so the tool's own runs are reported apart from the tests.
    valgrind --tool=memcheck --leak-check=full --error-exitcode=1 \
        --trace-children=yes --log-file="$logs/$name.%p.log" \
        "$program" --gtest_filter='-*DeathTest*:ResourceLimitsTest.*' --gtest_brief=1 >"$logs/$name.out" 2>&1 ||
        status=$?
    # A child that failed under valgrind shows in the test's own result too, but the
    # reason is only in its log.
    dirty=$(grep -L -E 'ERROR SUMMARY: 0 errors' "$logs/$name".*.log || true)
    if ((status == 0)) && [[ -z "$dirty" ]]; then
        printf '%-32s clean (%d s)\n' "$name" $((SECONDS - start))
    else
        failed=1
        printf '%-32s FAILED (status %d); see %s\n' "$name" "$status" "$logs/$name.*"
        for log in $dirty; do grep -E '^==[0-9]+== (Invalid|Conditional|Use of|Mismatched|.*lost)' "$log" | head -5; done
    fi
done

if ((failed)); then
    echo "==> memcheck found problems" >&2
    exit 1
fi
echo "==> memcheck: no errors and no leaks"
