#!/usr/bin/env bash
# Long runs of the fuzz targets on a fuzz build that `make fuzz` has made: each target
# until it has run FUZZ_RUNS inputs or FUZZ_SECONDS have passed, whichever comes
# first, FUZZ_JOBS targets at a time, each under `nice -n FUZZ_NICE` so that work
# beside it keeps the machine.
#   fuzz/campaign.sh [fuzz_<name>...]    (default: every fuzz/fuzz_*.cpp)
#   FUZZ_RUNS (10000000)  FUZZ_SECONDS (3600)  FUZZ_JOBS (2)  FUZZ_NICE (15)
#   FUZZ_BUILD (build-fuzz)
# Each run's output goes to $FUZZ_BUILD/logs/<name>.log, ending in libFuzzer's final
# statistics; new inputs to $FUZZ_BUILD/corpus/<name>/, findings to
# $FUZZ_BUILD/findings/<name>/, as with `make fuzz`.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD=${FUZZ_BUILD:-build-fuzz}
RUNS=${FUZZ_RUNS:-10000000}
SECONDS_EACH=${FUZZ_SECONDS:-3600}
JOBS=${FUZZ_JOBS:-2}
NICE=${FUZZ_NICE:-15}

targets=("$@")
((${#targets[@]})) || targets=($(cd fuzz && ls fuzz_*.cpp | sed 's/\.cpp$//'))

run() {
  local target=$1 name=${1#fuzz_}
  mkdir -p "$BUILD/corpus/$name" "$BUILD/findings/$name" "$BUILD/logs"
  QT_QPA_PLATFORM=offscreen nice -n "$NICE" "$BUILD/fuzz/$target" -runs="$RUNS" \
    -max_total_time="$SECONDS_EACH" -rss_limit_mb=2048 -timeout=10 -max_len=65536 \
    -print_final_stats=1 -artifact_prefix="$BUILD/findings/$name/" \
    "$BUILD/corpus/$name" "fuzz/corpus/$name" >"$BUILD/logs/$name.log" 2>&1 || true
  echo "$target: $(grep -E '^stat::number_of_executed_units' "$BUILD/logs/$name.log" || echo 'no statistics') "
}

for target in "${targets[@]}"; do
  [ -x "$BUILD/fuzz/$target" ] || { echo "no $BUILD/fuzz/$target: run make fuzz first" >&2; exit 2; }
  while (($(jobs -rp | wc -l) >= JOBS)); do wait -n; done
  run "$target" &
done
wait
