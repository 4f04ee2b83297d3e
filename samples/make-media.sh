#!/bin/bash
# Makes the media of the sample project: two films with sound and the background picture of the menus.
#
#   samples/make-media.sh [DIR [pal|ntsc]]        DIR is samples/media when not given, the norm is pal
#
# Says nothing and returns at once when DIR already holds what this script would make. A run that is broken off leaves
# no half-made film behind: the files are made beside their place and moved there when all of them are complete.
set -euo pipefail

usage() {
  sed -n '2,8s/^# \{0,1\}//p' "$0"
}

case "${1:-}" in
  -h | --help) usage; exit 0 ;;
esac
if [ $# -gt 2 ]; then
  usage >&2
  exit 2
fi

script=$(readlink -f "${BASH_SOURCE[0]}")
target=${1:-$(dirname "$script")/media}
norm=${2:-pal}

case "$norm" in
  pal) size=720x576 rate=25 gop=12 ;;
  ntsc) size=720x480 rate=30000/1001 gop=15 ;;
  *) echo "make-media.sh: the norm is pal or ntsc, not \"$norm\"" >&2; exit 2 ;;
esac

files=(film1.m2v film1.ac3 film2.m2v film2.ac3 background.png)
stamp="$norm $(cksum <"$script")"

complete() {
  [ "$(cat "$target/.made" 2>/dev/null)" = "$stamp" ] || return 1
  for file in "${files[@]}"; do
    [ -s "$target/$file" ] || return 1
  done
}

complete && exit 0

if ! command -v ffmpeg >/dev/null; then
  echo "make-media.sh: ffmpeg is missing (Debian package ffmpeg)" >&2
  exit 1
fi
if ! mkdir -p "$target" || [ ! -w "$target" ]; then
  echo "make-media.sh: cannot write to $target" >&2
  exit 1
fi

# Two runs at once: the second waits and finds the work done.
exec 9>"$target/.lock"
flock 9
complete && exit 0

work=$(mktemp -d "$target/.making.XXXXXX")
trap 'rm -rf "$work"' EXIT

font=$(fc-match -f '%{file}' 'Liberation Sans:bold' 2>/dev/null || true)
if [ -z "$font" ]; then
  echo "make-media.sh: no font was found (Debian packages fontconfig, fonts-liberation)" >&2
  exit 1
fi

convert() {
  ffmpeg -hide_banner -loglevel error -nostdin -y "$@"
}

# film NUMBER SECONDS CHAPTERS PICTURE FILTER TONE: a moving test picture with the film's number and a running clock, a
# picture group boundary at each chapter, and a tone with a beep each second.
film() {
  local number=$1 seconds=$2 chapters=$3 picture=$4 filter=$5 tone=$6
  local text="fontfile=$font:fontcolor=white:box=1:boxborderw=10:boxcolor=black@0.6:x=(w-tw)/2"
  convert -f lavfi -i "$picture=size=$size:rate=$rate" -t "$seconds" \
    -vf "$filter,drawtext=$text:fontsize=64:y=h/3:text='Film $number',drawtext=$text:fontsize=40:y=h*2/3:text='%{pts\\:hms}'" \
    -c:v mpeg2video -pix_fmt yuv420p -aspect 4:3 -b:v 3500k -maxrate 6000k -bufsize 1835k -g "$gop" -bf 2 \
    -flags +cgop+bitexact -sc_threshold 1000000000 -force_key_frames "$chapters" -threads 1 \
    -f mpeg2video "$work/film$number.m2v"
  convert -f lavfi -i "sine=frequency=$tone:beep_factor=4:sample_rate=48000:duration=$seconds" \
    -c:a ac3 -b:a 192k -ac 2 -flags +bitexact -f ac3 "$work/film$number.ac3"
}

film 1 24 0,7.2,15.6 testsrc2 null 330
film 2 28 0,5.04,12.48,21.8 smptebars scroll=horizontal=0.004 440
convert -f lavfi -i "gradients=size=720x576:seed=7:n=3:c0=0x0b2038:c1=0x274a6d:c2=0x123a2c:x0=0:y0=0:x1=719:y1=575" \
  -vf "drawbox=x=60:y=168:w=600:h=4:color=white@0.5:t=fill" -frames:v 1 -pix_fmt rgb24 -f image2 -update 1 \
  "$work/background.png"

mv "$work"/* "$target/"
echo "$stamp" >"$target/.made"
