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

# A first run makes a Standalone workstation: the server beside the client, the shell already
# handed to Tafelkrater in the program folder's own registry store (nothing outside the folder
# changes). An existing store is left as it is.
if [ ! -f "$root/install/Register/HKEY_LOCAL_MACHINE.reg" ]; then
  mkdir -p "$root/install/Register"
  cat > "$root/install/Register/HKEY_LOCAL_MACHINE.reg" <<REG
REGEDIT4

[HKEY_LOCAL_MACHINE\SOFTWARE\Tafelkrater]
"Modus"="1"
"Locatie server"="\\\\tafelkrater-server"

[HKEY_LOCAL_MACHINE\SOFTWARE\Microsoft\Windows NT\CurrentVersion\Winlogon]
"Shell"="$root/install/tafelkrater"
REG
fi

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
  export DISPLAY=:77
  Xvfb "$DISPLAY" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
  pids+=($!)
  sleep 1
  openbox >/dev/null 2>&1 &
  pids+=($!)
  # Without a screen to look at, leave a picture of what the client shows.
  ( sleep 10 && import -display "$DISPLAY" -window root "$root/install/screenshot.png" \
      && echo "run: screenshot in install/screenshot.png" ) &
fi

# The launcher starts the client (and restarts it after a fault) and ends with it.
"$root/install/tafelkrater-startup" "$root/install/tafelkrater" "$@"
