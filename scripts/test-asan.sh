#!/usr/bin/env bash
# Builds the whole test suite with AddressSanitizer and UndefinedBehaviorSanitizer and runs it.
# Any sanitizer report ends the test that made it, so a clean run means no report at all.
# Usage: scripts/test-asan.sh [build folder, default build-asan]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=${1:-build-asan}
jobs=${JOBS:-$(nproc)}

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug -DKWFIELDDECK_SANITIZE=ON
cmake --build "$build" -j "$jobs"

# verify_asan_link_order=0: the consumer-project test builds a program with the system's plain
# compiler flags against the instrumented library, so the runtime arrives with the library rather
# than first; every other test executable links the runtime first anyway.
export ASAN_OPTIONS="halt_on_error=1:abort_on_error=0:detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1:verify_asan_link_order=0"
# The random-use test takes more actions here, where every fault is a report.
export KW_RANDOM_ACTIONS=${KW_RANDOM_ACTIONS:-20000}
export UBSAN_OPTIONS="halt_on_error=1:print_stacktrace=1"
export LSAN_OPTIONS="suppressions=$root/scripts/lsan.supp:print_suppressions=0"
cd "$build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$jobs"
