#!/bin/bash
# Compares a whole run of the sample, torvane-cli build, with a script that calls the same tools by hand: prints the
# shortest time of each over some rounds, and their ratio.
#
#   bench/whole_run.sh [BIN [ROUNDS [TIMES]]]
#
# BIN is build/release/bin when not given, ROUNDS 7. With TIMES above 1 each film of the sample runs that many times over,
# which shows how the fixed cost of a run (drawing the menus, a console for each batch) fares with longer films.
# The exit code is 1 when the ratio is above 1.05 or a run fails.
set -euo pipefail
here=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
bin=${1:-$here/../build/release/bin}
rounds=${2:-7}
times=${3:-1}
limit=1.05

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
media=$work/media
"$here/../samples/make-media.sh" "$media" pal
cp "$here/../samples/sample.tvn" "$media/"
if [ "$times" -gt 1 ]; then
  for film in "$media"/film?.*; do
    mv "$film" "$work/once"
    for ((i = 0; i < times; i++)); do cat "$work/once"; done >"$film"
  done
fi

# torvane COMMAND: the program with everything in directories of its own.
torvane() {
  "$bin/torvane-cli" --profile "$work/profile" --assume yes --set OutDir="$work/out" --set TempDir="$work/temp" \
    --set ISOPath="$work" --set ISO_Name=SAMPLE --set CreateISO=1 "$1" "$media/sample.tvn"
}

# milliseconds COMMAND...: how long it took; its words go to a log that is shown when it fails.
milliseconds() {
  local start end
  start=$(date +%s%N)
  "$@" >"$work/log" 2>&1 </dev/null || {
    tail -n 20 "$work/log" >&2
    echo "whole_run.sh: failed: $*" >&2
    exit 1
  }
  end=$(date +%s%N)
  echo $(((end - start) / 1000000))
}

mkdir -p "$work/out" "$work/temp" "$work/hand" "$work/hand-out"
milliseconds torvane compile >/dev/null
cp "$work"/temp/*.png "$work"/temp/*.jpg "$work"/temp/*.xml "$work/hand/"
# Drive Z is the root of this machine.
sed -i -e 's#Z:\\#/#g; s#\\#/#g' -e "s#$work/temp#$work/hand#g; s#$work/out#$work/hand-out#g" "$work"/hand/*.xml

ours=() byHand=()
for ((round = 0; round < rounds; round++)); do
  rm -rf "$work/out/DVD" "$work/SAMPLE.ISO" "$work/hand-out/DVD"
  time=$(milliseconds torvane build) || exit 1
  ours+=("$time")
  time=$(milliseconds "$here/by_hand.sh" "$media" "$work/hand" "$work/hand-out") || exit 1
  byHand+=("$time")
done

for file in "$work"/hand-out/DVD/VIDEO_TS/*; do
  cmp "$file" "$work/out/DVD/VIDEO_TS/$(basename "$file")" || {
    echo "whole_run.sh: the two discs differ" >&2
    exit 1
  }
done

shortest() {
  printf '%s\n' "$@" | sort -n | head -n 1
}
awk -v ours="$(shortest "${ours[@]}")" -v hand="$(shortest "${byHand[@]}")" -v limit="$limit" 'BEGIN {
  ratio = ours / hand
  printf "torvane-cli build %d ms, by hand %d ms, ratio %.3f (at most %.2f)\n", ours, hand, ratio, limit
  exit ratio > limit
}'
