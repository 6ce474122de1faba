#!/usr/bin/env bash
# Hostile project files: makes each, gives it to `krolle outline` under /usr/bin/time
# and prints its status, wall and processor time, peak memory and the sentence it answered. Each
# should be refused with one sentence and status 2 within a second and 100 MB; the
# last, 6,000 nodes linked in one chain (links, not nesting), is a valid file and
# loads.
# Not part of ctest (the 200 MB file takes a while to write); docs/benchmarks.md
# ("Limits on project files") records its last result.
#   bench/hostile_files.sh [KROLLE_BINARY]
set -euo pipefail
KROLLE=$(realpath "${1:-build/tools/krolle}")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

root='<engineProject version="1" nextId="999999999">'

{ printf '<!DOCTYPE p [<!ENTITY e0 "haha">'
  for ((i = 1; i <= 9; i++)); do printf '<!ENTITY e%d "%s">' $i "$(printf "&e$((i - 1));%.0s" {1..10})"; done
  echo "]>$root<scene id=\"1\" name=\"&e9;\"/></engineProject>"; } >laughs.xml
echo "<!DOCTYPE p [<!ENTITY x SYSTEM \"/etc/passwd\">]>$root<scene id=\"1\"><metadatas>&x;</metadatas></scene></engineProject>" >external.xml
{ printf '%s<scene id="1" name="' "$root"; head -c 200000000 /dev/zero | tr '\0' x; echo '"/></engineProject>'; } >attribute.xml
{ echo "$root"; for ((i = 0; i < 100000; i++)); do printf '<a>'; done; echo; } >nesting.xml
echo "$root<scene id=\"1\"><sequence><block first=\"9223372036854775808\" last=\"1\" kind=\"empty\"/></sequence></scene></engineProject>" >length.xml
mkfifo fifo.xml
mkdir directory.xml
{ echo "$root"
  for ((i = 1; i < 60000; i++)); do
    echo "<scene id=\"$i\"><sequence><block first=\"1\" last=\"1\" kind=\"scene\" scene=\"$((i + 1))\"/></sequence></scene>"
  done
  echo '<scene id="60000"/></engineProject>'; } >chain.xml
group() { echo "<node type=\"TUGroup\" id=\"$1\" name=\"g$1\"$2>"; }
{ echo "$root<scene id=\"1\"><nodes>"
  for ((i = 1; i <= 6000; i++)); do group $i ""; done
  for ((i = 1; i <= 6000; i++)); do echo '</node>'; done
  echo '</nodes></scene></engineProject>'; } >groups.xml
{ echo "$root<scene id=\"1\"><nodes>"
  group 1 /
  for ((i = 2; i <= 6000; i++)); do group $i " parent=\"$((i - 1))\"/"; done
  echo '</nodes></scene></engineProject>'; } >links.xml

printf '%-10s %6s %8s %8s %6s  %s\n' file status seconds 'cpu s' MB answer
for file in laughs external attribute nesting length fifo directory chain groups links; do
  set +e
  /usr/bin/time -f '%e %U %S %M' -o time.txt timeout 20 "$KROLLE" outline "$file.xml" >/dev/null 2>answer.txt
  status=$?
  set -e
  read -r seconds user system kb < <(tail -n 1 time.txt)
  cpu=$(echo "$user + $system" | bc)
  printf '%-10s %6s %8s %8s %6s  %s\n' "$file" "$status" "$seconds" "$cpu" "$((kb / 1024))" "$(head -c 150 answer.txt | tr '\n' ' ')"
done
