#!/usr/bin/env bash
# Timings of boards made from images and of printed boards, at two sizes each, ten times
# apart, so that the ratio tells whether the work is linear: wall time, and peak resident
# memory by /usr/bin/time -v. The drawings are made first by `krolle sketches` (not timed).
# docs/benchmarks.md ("Printed boards") records the last result.
#   bench/print_boards.sh [KROLLE_BINARY]
set -euo pipefail
KROLLE=$(realpath "${1:-build/tools/krolle}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

# measure LABEL COMMAND...: one row, "LABEL  wall seconds  CPU seconds (user + system)  peak MB".
# On a shared machine the wall time waits for the processor; the CPU time does not.
measure() {
    local label=$1
    shift
    local start end
    start=$(date +%s%N)
    /usr/bin/time -v -o time.txt "$@" >/dev/null
    end=$(date +%s%N)
    local kb user sys
    kb=$(sed -n 's/.*Maximum resident set size (kbytes): //p' time.txt)
    user=$(sed -n 's/.*User time (seconds): //p' time.txt)
    sys=$(sed -n 's/.*System time (seconds): //p' time.txt)
    printf '%-44s %8.2f s wall %8.2f s CPU %8.1f MB\n' "$label" "$(echo "($end - $start) / 1000000000" | bc -l)" \
        "$(echo "$user + $sys" | bc -l)" "$(echo "$kb / 1024" | bc -l)"
}

for panels in 2000 20000; do
    "$KROLLE" new "plain$panels.xml" --shots $((panels / 4)) --panels-per-shot 4 --sequences 20 >/dev/null
    measure "pdf, $panels panels without images" "$KROLLE" pdf "plain$panels.xml" --out "plain$panels.pdf"
    echo "    $(stat -c %s "plain$panels.pdf") bytes"
done

for images in 50 500; do
    "$KROLLE" sketches "drawings$images" --count $images --size 1920x1080 >/dev/null
    measure "import-images, $images images of 1920x1080" \
        "$KROLLE" import-images "drawings$images" --out "images$images.xml" --group shot
    measure "pdf, $images panels with images" "$KROLLE" pdf "images$images.xml" --out "images$images.pdf"
    echo "    $(stat -c %s "images$images.pdf") bytes"
done
