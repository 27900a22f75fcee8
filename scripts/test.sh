#!/usr/bin/env bash
# Builds Tafelkrater and runs every test. With --sanitize the suite runs a second time in a build
# with AddressSanitizer and UndefinedBehaviorSanitizer.
#
# A skipped test fails the run unless it is on the allow-list below: a test that cannot run says
# why, and the machine that runs the suite installs what every test needs. As root, the tests that
# need a folder their user cannot write run a second time as the unprivileged user nobody.
set -euo pipefail
cd "$(dirname "$0")/.."
export QT_QPA_PLATFORM=offscreen
[ "$(id -u)" -ne 0 ] || export QTWEBENGINE_DISABLE_SANITY=1 QTWEBENGINE_DISABLE_SANDBOX=1
jobs="$(nproc)"

# Skips the suite accepts (ctest names, as regular expressions), each with why.
allowed_skips=(
  # Root writes and reads everywhere; these run as nobody below.
  'RegistryFileStoreTest\.AnUnwritableFolderOrUnreadableFileAnswersThatTheStoreCannotBeWritten'
  'IniTest\.AFileThatCannotBeReadIsNotWrittenOver'
)
# Binary and test of what needs an unprivileged user (see above).
unprivileged=(
  'tests/platform/tk_platform_tests RegistryFileStoreTest.AnUnwritableFolderOrUnreadableFileAnswersThatTheStoreCannotBeWritten'
  'tests/core/tk_core_tests IniTest.AFileThatCannotBeReadIsNotWrittenOver'
)

# Fails when ctest's log names a skipped test that is not on the allow-list.
check_skips() {
  local log="$1" skipped unexpected=""
  skipped="$(sed -n 's/^[[:space:]]*[0-9]* - \([^ ]*\) (\(Skipped\|Disabled\))$/\1/p' "$log")"
  for name in $skipped; do
    local allowed=0
    for pattern in "${allowed_skips[@]}"; do
      [[ "$name" =~ $pattern ]] && allowed=1
    done
    [ "$allowed" = 1 ] || unexpected+="  $name"$'\n'
  done
  if [ -n "$unexpected" ]; then
    printf 'These tests were skipped (see their skip message above):\n%s' "$unexpected" >&2
    return 1
  fi
}

# Runs the tests of the list as nobody, from a copy of their binary that every user can read.
run_unprivileged() {
  local dir="$1" copy
  [ "$(id -u)" -eq 0 ] || return 0
  copy="$(mktemp -d)"
  chmod 755 "$copy"
  for entry in "${unprivileged[@]}"; do
    local binary="${entry%% *}" test="${entry#* }" out
    install -m 755 "$dir/$binary" "$copy/"
    out="$(cd "$copy" && setpriv --reuid=nobody --regid=nogroup --clear-groups \
      env HOME="$copy" TMPDIR=/tmp "./${binary##*/}" --gtest_filter="$test" 2>&1)" || {
      printf '%s\n%s as nobody failed\n' "$out" "$test" >&2
      return 1
    }
    if ! grep -q '^\[  PASSED  \] 1 test' <<<"$out"; then
      printf '%s\n%s did not run as nobody\n' "$out" "$test" >&2
      return 1
    fi
    echo "$test passed as nobody"
  done
  rm -rf "$copy"
}

run_preset() {
  local preset="$1" dir="$2" log
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  log="$(mktemp)"
  ctest --preset "$preset" -j "$jobs" --timeout 600 | tee "$log"
  check_skips "$log"
  rm -f "$log"
  run_unprivileged "$dir"
}

run_preset default build
if [ "${1:-}" = "--sanitize" ]; then
  # Qt WebEngine's bundled engine frees some objects through a base type with a sized delete;
  # AddressSanitizer reports that inside libQt6WebEngineCore (not in our code) when a page goes.
  export ASAN_OPTIONS=detect_leaks=0:new_delete_type_mismatch=0
  run_preset asan build-asan
fi
