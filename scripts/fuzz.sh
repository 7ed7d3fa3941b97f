#!/usr/bin/env bash
# Builds the libFuzzer targets with clang (the library with coverage, AddressSanitizer and
# UndefinedBehaviorSanitizer), replays the crashes kept as regressions, then runs each target for
# FUZZ_SECONDS from its seed corpus. Fails when any target crashes, hangs, leaks or reports.
# Usage: scripts/fuzz.sh [build folder, default build-fuzz]; FUZZ_TARGETS limits the targets.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=${1:-build-fuzz}
seconds=${FUZZ_SECONDS:-60}
jobs=${JOBS:-$(nproc)}

if [ ! -f "$build/CMakeCache.txt" ]; then
    CC=clang CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DKWFIELDDECK_BUILD_FUZZ=ON -DKWFIELDDECK_BUILD_TESTS=OFF -DKWFIELDDECK_BUILD_DESIGNER=OFF
else
    cmake "$build" >/dev/null
fi
targets=${FUZZ_TARGETS:-$(sed -n 's/^kw_add_fuzzer(\([a-z_]*\) .*/\1/p' tests/fuzz/CMakeLists.txt)}
# shellcheck disable=SC2086
cmake --build "$build" -j "$jobs" --target $targets

export ASAN_OPTIONS="halt_on_error=1:detect_leaks=1:allocator_may_return_null=1"
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
export LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp:print_suppressions=0"
export QT_QPA_PLATFORM=offscreen
# Error reports are counted by the targets; their log lines would drown the fuzzer's own.
export QT_LOGGING_RULES="kwfielddeck.*=false"
# The settings store replaces its file with a flush to disk on every save; in memory the
# store's targets get through many more inputs.
scratch=$(mktemp -d -p /dev/shm 2>/dev/null || mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export XDG_CONFIG_HOME=$scratch/config

failed=()
for target in $targets; do
    binary=$build/tests/fuzz/$target
    work=$build/fuzz-work/$target
    mkdir -p "$work/corpus"
    regressions=tests/fuzz/regressions/$target
    if [ -d "$regressions" ] && [ -n "$(ls -A "$regressions")" ]; then
        echo "== $target: replaying $(ls "$regressions" | wc -l) kept crashes"
        if ! "$binary" -runs=1 "$regressions"/* >"$work/regressions.log" 2>&1; then
            tail -40 "$work/regressions.log"
            failed+=("$target (regression)")
            continue
        fi
    fi
    echo "== $target: ${seconds}s from $(ls tests/fuzz/corpus/$target | wc -l) seeds"
    # New inputs go to the build folder's corpus; the committed seeds stay as they are.
    if "$binary" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -max_len=8192 \
        -artifact_prefix="$work/" -print_final_stats=1 "$work/corpus" "tests/fuzz/corpus/$target" \
        </dev/null >"$work/run.log" 2>&1; then
        grep -E '^(#[0-9]+.*DONE|stat::number_of_executed_units|stat::peak_rss_mb)' "$work/run.log" || true
    else
        tail -60 "$work/run.log"
        echo "   crash input kept under $work/ (copy it to $regressions/ once fixed)"
        failed+=("$target")
    fi
done

if [ ${#failed[@]} -gt 0 ]; then
    echo "fuzzing failed: ${failed[*]}"
    exit 1
fi
echo "fuzzing clean: $targets"
