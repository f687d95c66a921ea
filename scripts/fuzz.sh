#!/usr/bin/env bash
# Builds the libFuzzer targets (the `fuzz` preset: clang, ASan+UBSan) and runs every fuzzer
# for SECONDS seconds (default 10) on its seed corpus in fuzz/corpus/<fuzzer>/, two at a
# time. Fails when any fuzzer finds a crash, a sanitizer report, a leak, a timeout or a
# broken invariant; the input that did it is left in build/fuzz/findings/.
#
#   scripts/fuzz.sh            every fuzzer for 10 s (what CI runs)
#   scripts/fuzz.sh 600        every fuzzer for 10 minutes
#   scripts/fuzz.sh 60 decode_tlv split_tlv_data     only the fuzzers named
#
# Inputs found to add coverage go to build/fuzz/corpus/<fuzzer>/, not into the seeds; copy
# the small, interesting ones into fuzz/corpus/ by hand. FUZZ_JOBS sets how many fuzzers
# run at once (default 2).
set -euo pipefail
cd "$(dirname "$0")/.."

seconds=${1:-10}
if ! [[ "$seconds" =~ ^[0-9]+$ ]] || ((seconds == 0)); then
    echo "usage: scripts/fuzz.sh [SECONDS] [FUZZER...]" >&2
    exit 2
fi
shift || true
jobs=${FUZZ_JOBS:-2}

./scripts/setup.sh fuzz
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz

build=build/fuzz
mkdir -p "$build/findings" "$build/logs"
if (($# > 0)); then
    fuzzers=("$@")
else
    fuzzers=()
    for source in fuzz/*.cpp; do fuzzers+=("$(basename "$source" .cpp)"); done
fi

# Runs one fuzzer; its log goes to build/fuzz/logs/<fuzzer>.log.
run_fuzzer() {
    local name=$1
    local found="$build/corpus/$name"
    mkdir -p "$found" "fuzz/corpus/$name"
    # The first corpus directory receives new inputs, so the seeds stay as committed.
    "$build/fuzz/$name" "$found" "fuzz/corpus/$name" \
        -max_total_time="$seconds" -max_len=4096 -timeout=10 -rss_limit_mb=2048 \
        -print_final_stats=1 -artifact_prefix="$build/findings/$name-" \
        >"$build/logs/$name.log" 2>&1
}

report() {
    local name=$1 status=$2
    local runs
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$build/logs/$name.log")
    if ((status == 0)); then
        printf '%-34s ok    %12s executions in %s s\n' "$name" "${runs:-?}" "$seconds"
    else
        printf '%-34s FOUND something (status %s); see %s\n' "$name" "$status" \
            "$build/logs/$name.log"
        grep -E 'ERROR|invariant does not hold|runtime error|Test unit written' \
            "$build/logs/$name.log" | head -5 | sed 's/^/    /'
    fi
}

echo "==> running ${#fuzzers[@]} fuzzers for ${seconds} s each, ${jobs} at a time"
failed=0
declare -A pids=()
for name in "${fuzzers[@]}"; do
    if [[ ! -x "$build/fuzz/$name" ]]; then
        echo "scripts/fuzz.sh: no fuzzer named '$name'" >&2
        exit 2
    fi
    while ((${#pids[@]} >= jobs)); do
        finished_pid=0
        status=0
        wait -n -p finished_pid "${!pids[@]}" || status=$?
        report "${pids[$finished_pid]}" "$status"
        ((status == 0)) || failed=1
        unset "pids[$finished_pid]"
    done
    run_fuzzer "$name" &
    pids[$!]=$name
done
while ((${#pids[@]} > 0)); do
    finished_pid=0
    status=0
    wait -n -p finished_pid "${!pids[@]}" || status=$?
    report "${pids[$finished_pid]}" "$status"
    ((status == 0)) || failed=1
    unset "pids[$finished_pid]"
done

if ((failed)); then
    echo "==> fuzzing found problems: the inputs are in $build/findings/" >&2
    exit 1
fi
echo "==> no findings"
