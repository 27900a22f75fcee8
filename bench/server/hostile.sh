#!/bin/sh
# The server under hostile load: 200 clients load a maximal school in quiet and while attackers
# send garbage, hold silent connections and flood the port with connects; first with the
# server's own open-file limit, then under a limit of 1024 so that the flood runs it out of
# descriptors. Usage: bash bench/server/hostile.sh [BUILD_DIR]
set -e
build=${1:-build}
bench=$build/bench/server/tk_server_hostile_bench
cmake --build "$build" --target tk_server_hostile_bench tafelkrater-server
ulimit -n "$(ulimit -Hn)"
echo "== the server's own limit"
"$bench"
echo "== the server under 1024 open files"
"$bench" --server-files 1024
# On a small shared machine the attacking process takes the clients' processor time; attackers
# are other machines in truth. This run gives it a low priority.
echo "== the attacker at a low priority"
"$bench" --attacker-nice 15
