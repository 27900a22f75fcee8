#!/usr/bin/env bash
# Builds Tafelkrater and runs every test. With --sanitize the suite runs a second time in a build
# with AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")/.."
export QT_QPA_PLATFORM=offscreen
[ "$(id -u)" -ne 0 ] || export QTWEBENGINE_DISABLE_SANITY=1 QTWEBENGINE_DISABLE_SANDBOX=1
jobs="$(nproc)"

run_preset() {
  local preset="$1"
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  ctest --preset "$preset" -j "$jobs" --timeout 600
}

run_preset default
if [ "${1:-}" = "--sanitize" ]; then
  export ASAN_OPTIONS=detect_leaks=0
  run_preset asan
fi
