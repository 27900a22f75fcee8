#!/usr/bin/env bash
# Builds the fuzz targets (preset fuzz: clang, libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs each for SECONDS (default 60), one after the other. Prints
# executions and findings per target; exits 1 when any target found something, with the path of
# each reproducer. Run one target again on its reproducer: build-fuzz/fuzz/<Target> <file>.
#   FUZZ_TARGETS="IniDocumentFuzz RegFileFuzz" scripts/fuzz.sh 600   # only these
#   FUZZ_RUNS=10000000 scripts/fuzz.sh 3600   # stop a target at ten million inputs
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"
build=build-fuzz
# Two runs started together build one after the other.
mkdir -p "$build"
(
  flock 9
  cmake --preset fuzz >/dev/null
  cmake --build "$build" --target fuzz_targets -j "$(nproc)" >/dev/null
) 9>"$build/.fuzz-build.lock"

# The wire's words come from the one place that names them, with its separators and a few numbers
# at the edges of their ranges.
wire_dict="$build/fuzz/wire.dict"
{
  sed -n 's/.*QLatin1StringView [A-Za-z]*{"\(.*\)"}.*/"\1"/p' core/Wire.h
  printf '"%s"\n' '|' '-1' '65536' '2147483648' '99999999999999999999'
} >"$wire_dict"

dict_of() {
  case "$1" in
    DispatcherFuzz | CommandHandlerFuzz) echo "$wire_dict" ;;
    IniDocumentFuzz | ThemeKeysFuzz | DesktopEntryFuzz | RegFileFuzz | LoadAnswersFuzz) echo fuzz/ini.dict ;;
  esac
}

targets="${FUZZ_TARGETS:-$(sed -n 's/^tk_fuzz_target(\([A-Za-z0-9]*\) .*/\1/p' fuzz/CMakeLists.txt | tr '\n' ' ')}"
out="$build/fuzz/runs"
mkdir -p "$out"
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=0}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1}"
export QT_QPA_PLATFORM=offscreen
failed=0
printf '%-20s %12s %10s %8s  %s\n' target executions exec/s corpus findings
for t in $targets; do
  corpus="$out/corpus/$t"
  findings="$out/findings"
  mkdir -p "$corpus" "$findings"
  # No leak check: the targets keep one workstation for the whole run, and libFuzzer would run
  # every input that leaves memory behind a second time to look for one.
  args=(-max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -close_fd_mask=1 -detect_leaks=0
        -print_final_stats=1 -artifact_prefix="$findings/$t-")
  [ -z "${FUZZ_RUNS:-}" ] || args+=(-runs="$FUZZ_RUNS")
  dict="$(dict_of "$t")"
  [ -z "$dict" ] || args+=(-dict="$dict")
  log="$out/$t.log"
  before="$(ls "$findings" | grep -c "^$t-" || true)"
  rc=0
  dirs=("$corpus")
  [ ! -d "$build/fuzz/seeds/$t" ] || dirs+=("$build/fuzz/seeds/$t")
  "$build/fuzz/$t" "${args[@]}" "${dirs[@]}" >"$log" 2>&1 || rc=$?
  runs="$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -1)"
  speed="$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log" | tail -1)"
  size="$(ls "$corpus" | wc -l)"
  new="$(ls "$findings" | grep "^$t-" | tail -n +"$((before + 1))" || true)"
  if [ "$rc" -ne 0 ] || [ -n "$new" ]; then
    failed=1
    printf '%-20s %12s %10s %8s  %s\n' "$t" "${runs:-?}" "${speed:-?}" "$size" "FOUND (exit $rc)"
    # The input itself, so that a finding on another machine (CI) can be run again here:
    #   echo '<base64>' | base64 -d > input && build-fuzz/fuzz/<Target> input
    for f in $new; do
      echo "    reproducer: $findings/$f"
      echo "    base64: $(head -c 4096 "$findings/$f" | base64 -w0)"
    done
    grep -m3 -E 'ERROR|runtime error|SUMMARY|deadly signal' "$log" | sed 's/^/    /' || true
    echo "    log: $log"
  else
    printf '%-20s %12s %10s %8s  %s\n' "$t" "${runs:-?}" "${speed:-?}" "$size" none
  fi
done
exit "$failed"
