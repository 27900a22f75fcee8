#!/bin/bash
# Counts the instructions of one start-screen frame with accessibility off and on (the frame
# made, painted and, when on, its whole accessible tree read), exactly, under callgrind: wall
# time on a shared machine varies by tens of percent, instruction counts by less than one.
#   bash bench/a11y/eerste_beeld_instructies.sh [build/bench/a11y/tk_a11y_bench]
set -euo pipefail
bench=${1:-build/bench/a11y/tk_a11y_bench}
map=$(mktemp -d)
trap 'rm -rf "$map"' EXIT
declare -A per
for aan in 0 1; do
    QT_QPA_PLATFORM=offscreen valgrind --tool=callgrind --callgrind-out-file="$map/cg.$aan" \
        --toggle-collect='*EersteBeeld*' "$bench" --benchmark_filter="EersteBeeld/$aan\$" \
        --benchmark_min_time=0.5 >/dev/null 2>&1
    # The frames measured are the calls of beeld() from the benchmark's loop (the warm-up calls
    # come through opwarmen()).
    per[$aan]=$(callgrind_annotate --tree=caller --inclusive=yes "$map/cg.$aan" | python3 -c '
import re, sys
blok, per = [], None
for regel in sys.stdin.readlines():
    if not regel.strip():
        blok = []
        continue
    blok.append(regel)
    if re.search(r"\* .*beeld\(\(anonymous namespace\)::Startscherm&", regel):
        for r in blok:
            m = re.match(r"\s*([\d,]+) .*< .*EersteBeeld\(benchmark::State&\) \((\d+)x\)", r)
            if m and per is None:
                per = int(m.group(1).replace(",", "")) // int(m.group(2))
print(per)
')
    echo "accessibility $([ $aan = 1 ] && echo on || echo off): ${per[$aan]} instructions a frame"
done
awk -v uit="${per[0]}" -v aan="${per[1]}" \
    'BEGIN { printf "on costs %+.1f %% of off\n", (aan - uit) * 100 / uit }'
