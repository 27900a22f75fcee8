#!/usr/bin/env bash
# Builds and installs Tafelkrater into ./install, starts the server with the demo school and the
# client. Without a display, the client runs under a virtual X server (Xvfb) with a window
# manager, and a screenshot is left in ./install/screenshot.png.
set -euo pipefail
cd "$(dirname "$0")/.."
root="$(pwd)"
cmake --preset default >/dev/null
cmake --build --preset default -j "$(nproc)"
cmake --install build --prefix "$root/install" >/dev/null
[ "$(id -u)" -ne 0 ] || export QTWEBENGINE_DISABLE_SANDBOX=1

pids=()
cleanup() { for p in "${pids[@]}"; do kill "$p" 2>/dev/null || true; done; }
trap cleanup EXIT

if [ -x "$root/install/tafelkrater-server" ]; then
  mkdir -p "$root/install/Server"
  "$root/install/tafelkrater-server" --data "$root/install/Server" --demo &
  pids+=($!)
  sleep 1
fi

if [ -z "${DISPLAY:-}" ]; then
  export DISPLAY=:77
  Xvfb "$DISPLAY" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
  pids+=($!)
  sleep 1
  openbox >/dev/null 2>&1 &
  pids+=($!)
fi

"$root/install/tafelkrater" "$@"
