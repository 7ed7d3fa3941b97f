#!/usr/bin/env bash
# Builds the benchmarks and runs kwPropertyControl and its two peers (a plain Qt form,
# wxPropertyGrid) on the same work for each row count of BENCH_ROWS, every program in a fresh
# process on one Xvfb display; then prints the table and writes bench/results/bench.csv,
# bench.svg and bench.md. BENCH_CLOCK=real ranks by wall time instead of process CPU time.
# Usage: scripts/bench.sh [build folder, default build-bench]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
build=${1:-build-bench}
rows=${BENCH_ROWS:-1000 10000 100000}
jobs=${JOBS:-$(nproc)}
programs=${BENCH_PROGRAMS:-bench_kwgrid bench_qtform bench_wxpropgrid}
# One program on one row count may take at most this long; what it measured by then is kept.
limit=${BENCH_TIMEOUT:-3600}

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKWFIELDDECK_BUILD_BENCH=ON \
    -DKWFIELDDECK_BUILD_TESTS=OFF -DKWFIELDDECK_BUILD_DESIGNER=OFF >/dev/null
# shellcheck disable=SC2086
cmake --build "$build" -j "$jobs" --target $programs

raw=$root/$build/bench-raw
rm -rf "$raw"
mkdir -p "$raw"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

cat >"$scratch/run.sh" <<RUN
set -euo pipefail
for n in $rows; do
    for p in $programs; do
        echo "== \$p, \$n rows"
        status=0
        timeout $limit "$root/$build/bench/\$p" --rows=\$n --benchmark_out="$raw/\$p-\$n.json" \
            --benchmark_out_format=json >"$raw/\$p-\$n.log" 2>&1 || status=\$?
        grep -E '^(memory|build|layout|set_by|read|save|restore|scroll)|rror|message' "$raw/\$p-\$n.log" || true
        if [ \$status = 124 ]; then
            echo "\$p did not finish \$n rows within $limit s." | tee -a "$raw/notes.txt"
        elif [ \$status != 0 ]; then
            echo "\$p failed on \$n rows (exit \$status), see $raw/\$p-\$n.log" | tee -a "$raw/notes.txt"
        fi
    done
done
RUN
# The settings store and the peers' files go to a scratch folder; every toolkit draws on Xvfb.
XDG_CONFIG_HOME=$scratch/config TMPDIR=$scratch QT_QPA_PLATFORM=xcb NO_AT_BRIDGE=1 \
    xvfb-run -a -s "-screen 0 1280x1024x24" bash "$scratch/run.sh"

{
    echo "Machine: $(nproc) cores, $(sed -n 's/^model name\s*: //p' /proc/cpuinfo | head -1)," \
        "$(awk '/MemTotal/ {printf "%.0f GiB", $2 / 1048576}' /proc/meminfo); load average" \
        "$(cut -d' ' -f1-3 /proc/loadavg) at the end of the run."
} >"$raw/machine.txt"
python3 bench/report.py "$raw" bench/results "${BENCH_CLOCK:-cpu}"
cat "$raw/machine.txt"
cat "$raw/machine.txt" >>bench/results/bench.md
if [ -f "$raw/notes.txt" ]; then
    cat "$raw/notes.txt"
    cat "$raw/notes.txt" >>bench/results/bench.md
fi
