#!/usr/bin/env bash
# Bench: from the launcher's start to the start screen of the demo school, with the server on
# loopback, under a virtual X server with a window manager. Each run uses a fresh copy of the
# installed program folder. Reports per run and as medians:
#   loc    the first location ("GLOBAL") that reaches the server, from the server's log
#   shown  the client's window mapped on the screen (xdotool)
#   rss    the client's resident memory on the start screen, 2 s after it showed (/proc)
# Usage: bash bench/start/startscherm.sh [runs] [FOLDER]
#   after cmake --build --preset default; with FOLDER (an installed program folder, e.g. one of
#   main installed beside), that folder is measured instead of build/, to compare side by side.
set -euo pipefail
cd "$(dirname "$0")/../.."
root="$(pwd)"
runs="${1:-5}"
work="$(mktemp -d)"
pids=()
cleanup() {
  for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

if [ -n "${2:-}" ]; then
  cp -a "$2" "$work/programma"
else
  cmake --install build --prefix "$work/programma" >/dev/null
fi
if ss -ltn | grep -q ':34487 '; then echo "port 34487 is taken: stop the other server first"; exit 1; fi

source "$root/scripts/xsessie.sh"
start_xsessie :93

export USERNAME=TAFELKRATER
now() { date +%s%N; }
ms() { echo $(( ($2 - $1) / 1000000 )); }
locs=(); shows=(); rsss=()
for run in $(seq "$runs"); do
  map="$work/run$run"
  cp -a "$work/programma" "$map"
  mkdir -p "$map/Server"
  bash "$root/scripts/werkplek.sh" "$map"
  : >"$map/server.log"
  "$map/tafelkrater-server" --data "$map/Server" --port 34487 --demo >"$map/server.log" 2>&1 &
  server=$!
  for _ in $(seq 100); do grep -q 'listening on port' "$map/server.log" && break; sleep 0.05; done

  start=$(now)
  "$map/tafelkrater-startup" "$map/tafelkrater" >"$map/client.log" 2>&1 &
  launcher=$!
  loc=""; shown=""
  for _ in $(seq 2000); do
    [ -z "$loc" ] && grep -q 'at location GLOBAL' "$map/server.log" && loc=$(now)
    [ -z "$shown" ] && xdotool search --onlyvisible --name '^Tafelkrater$' >/dev/null 2>&1 && shown=$(now)
    [ -n "$loc" ] && [ -n "$shown" ] && break
    sleep 0.005
  done
  sleep 2
  client=$(pgrep -P "$launcher" -f "$map/tafelkrater" | head -n 1 || true)
  rss=$(awk '/VmRSS/ {print $2}' "/proc/$client/status" 2>/dev/null || echo 0)
  [ -n "$loc" ] || { echo "run $run: the location never reached the server"; cat "$map/client.log"; exit 1; }
  [ -n "$shown" ] || { echo "run $run: no start screen window"; exit 1; }
  locs+=("$(ms "$start" "$loc")"); shows+=("$(ms "$start" "$shown")"); rsss+=("$((rss / 1024))")
  echo "run $run: loc ${locs[-1]} ms, shown ${shows[-1]} ms, rss ${rsss[-1]} MB"
  kill "$launcher"; wait "$launcher" 2>/dev/null || true
  kill "$server"; wait "$server" 2>/dev/null || true
done

median() { printf '%s\n' "$@" | sort -n | awk '{a[NR]=$1} END {print a[int((NR+1)/2)]}'; }
echo "median of $runs: loc $(median "${locs[@]}") ms, shown $(median "${shows[@]}") ms, rss $(median "${rsss[@]}") MB (goals: under 1000 ms, under 80 MB)"
