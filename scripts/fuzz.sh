#!/usr/bin/env bash
# Builds the fuzz targets with clang and libFuzzer in their own build folder and runs
# each for a bounded time, one after the other, on a copy of its seed corpus.
#   FUZZ_SECONDS  seconds per target (60)
#   FUZZ_BUILD    build folder (build-fuzz)
#   FUZZ_TARGETS  targets to run (all fuzz/fuzz_*.cpp)
# New inputs go to $FUZZ_BUILD/corpus/<name>/; findings (crash-*, leak-*, timeout-*)
# to $FUZZ_BUILD/findings/<name>/. Merge a run's inputs back into the seeds with
#   <target> -merge=1 fuzz/corpus/<name> $FUZZ_BUILD/corpus/<name>
set -euo pipefail
cd "$(dirname "$0")/.."
SECONDS_EACH=${FUZZ_SECONDS:-60}
BUILD=${FUZZ_BUILD:-build-fuzz}

missing=()
command -v clang++ >/dev/null || missing+=(clang)
dpkg -s libclang-rt-14-dev >/dev/null 2>&1 || missing+=(libclang-rt-14-dev)
if ((${#missing[@]})); then
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq "${missing[@]}"
fi
bash scripts/setup.sh

if [ ! -f "$BUILD/build.ninja" ]; then
  CXX=clang++ cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKROLLE_FUZZ=ON
fi
cmake --build "$BUILD" -j "${JOBS:-2}"

targets=${FUZZ_TARGETS:-$(cd fuzz && ls fuzz_*.cpp | sed 's/\.cpp$//')}
for target in $targets; do
  name=${target#fuzz_}
  mkdir -p "$BUILD/corpus/$name" "$BUILD/findings/$name"
  echo "== $target: ${SECONDS_EACH}s =="
  QT_QPA_PLATFORM=offscreen "$BUILD/fuzz/$target" -max_total_time="$SECONDS_EACH" -rss_limit_mb=2048 \
    -timeout=10 -max_len=65536 -print_final_stats=1 -artifact_prefix="$BUILD/findings/$name/" \
    "$BUILD/corpus/$name" "fuzz/corpus/$name"
done
