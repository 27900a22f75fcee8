#!/usr/bin/env bash
# Builds and installs Tafelkrater into ./install, starts the server with the demo school and the
# client. Without a display, the client runs under a virtual X server (Xvfb) with a window
# manager, and screenshots of a walk through the demo are left in ./install (scripts/tour.sh).
set -euo pipefail
cd "$(dirname "$0")/.."
root="$(pwd)"
cmake --preset default >/dev/null
cmake --build --preset default -j "$(nproc)"
cmake --install build --prefix "$root/install" >/dev/null
[ "$(id -u)" -ne 0 ] || export QTWEBENGINE_DISABLE_SANDBOX=1

# A first run makes an activated Standalone workstation of the folder (scripts/werkplek.sh);
# nothing outside the folder changes, and an existing store is left as it is.
bash "$root/scripts/werkplek.sh" "$root/install"
export USERNAME=TAFELKRATER

pids=()
cleanup() { for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done; }
trap cleanup EXIT

if [ -x "$root/install/tafelkrater-server" ]; then
  mkdir -p "$root/install/Server"
  "$root/install/tafelkrater-server" --data "$root/install/Server" --port 34487 --demo &
  pids+=($!)
  sleep 1
fi

if [ -z "${DISPLAY:-}" ]; then
  source "$root/scripts/xsessie.sh"
  start_xsessie :77
  # Without a screen to look at, walk through the demo and leave a picture of every step.
  bash "$root/scripts/tour.sh" "$root/install" &
fi

# The launcher starts the client (and restarts it after a fault) and ends with it.
"$root/install/tafelkrater-startup" "$root/install/tafelkrater" "$@"
