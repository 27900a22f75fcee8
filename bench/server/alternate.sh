#!/bin/sh
# Two builds of the server under the same hostile load, taking turns, so that the load of a
# shared machine falls on both alike. Prints per run the build, the load average before it, the
# quiet and attacked median load times and their ratio.
# Usage: bash bench/server/alternate.sh OLD_SERVER [ROUNDS] [BUILD_DIR] [bench options...]
set -e
old=$1
rounds=${2:-3}
build=${3:-build}
shift 3 2>/dev/null || shift $#
bench=$build/bench/server/tk_server_hostile_bench
# TK_NEW_SERVER: a copy of the new build, so that a rebuild meanwhile does not change it.
new=${TK_NEW_SERVER:-$build/server/tafelkrater-server}
cmake --build "$build" --target tk_server_hostile_bench tafelkrater-server >/dev/null
ulimit -n "$(ulimit -Hn)"
i=0
while [ "$i" -lt "$rounds" ]; do
    for which in old new; do
        if [ "$which" = old ]; then exe=$old; else exe=$new; fi
        echo "== $which (round $((i + 1)), load $(cut -d' ' -f1-3 /proc/loadavg))"
        TK_BENCH_SERVER=$exe "$bench" "$@" |
            grep -E '^(quiet|under attack|median|attack:|server log)' || true
    done
    i=$((i + 1))
done
