#!/bin/bash
# Makes a project and its disc from nothing but media files, with torvane-cli alone: an example to copy from.
#
#   samples/make-disc-by-script.sh DIR
#
# DIR gets the media, the project island.tvn and the disc DIR/DVD. The disc has two titlesets, each with a menu of its
# chapters; the first film has two sound tracks, the second one subtitles. TORVANE_CLI names the program; without it
# the one of build/dev is used, or else that of the PATH.
set -euo pipefail

if [ $# -ne 1 ] || [[ $1 == -* ]]; then
  sed -n '2,8s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi

samples=$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")
program=$samples/../build/dev/bin/torvane-cli
[ -x "$program" ] || program=torvane-cli
program=${TORVANE_CLI:-$program}

mkdir -p "$1"
cd "$1"
"$samples/make-media.sh" .

# What make-media.sh does not make: another sound track and subtitles.
[ -s comment.mp2 ] || ffmpeg -hide_banner -loglevel error -nostdin -y \
  -f lavfi -i "sine=frequency=220:sample_rate=48000:duration=24" -c:a mp2 -b:a 192k -ac 2 comment.mp2
printf '%s\r\n' 1 '00:00:02,000 --> 00:00:06,000' 'The second film' '' \
  2 '00:00:13,000 --> 00:00:17,500' 'has subtitles.' '' >film2.srt

project=island.tvn
cli() {
  "$program" --profile "$PWD/profile" --assume yes --set OutDir="$PWD" "$@"
}
# edit COMMAND ARGUMENT...: one change of the project
edit() {
  cli "$1" "$project" "${@:2}"
}

cli --set PostGoMain=1 new "$project"
edit set MMBGPath background.png
edit add-label "Two films" --at 64,90

# The films, their titlesets and their buttons in the main menu.
edit add-title film1.m2v --name First_film --audio film1.ac3 --audio comment.mp2 --languages EN,DE \
  --chapters 0:00,0:07.2,0:15.6 --at 100,220
edit add-title film2.m2v --name Second_film --sub film2.srt --languages EN,,,EN \
  --chapters 0:00,0:05.04,0:12.48,0:21.8 --at 120,280
edit align left MMB1 MMB2

# A button for each chapter in the menu of each film.
edit set TS1BGPath background.png
edit set TS2BGPath background.png
edit add-chapters --menu TS1 --grid R3C1PX100PY220DX70DY70
edit add-chapters --menu TS2 --grid R2C2PX100PY220DX250DY70

# A menu behind the main menu, with a button that ends the disc.
edit add-menu --text More --at 100,340
edit set MM1BGPath background.png
edit add-label "Thank you for watching" --menu MM1 --at 64,90
edit add-button "Good bye" --action "exit;" --menu MM1 --at 100,220

cli info "$project"
cli build "$project" >build.txt
echo "The disc:  $PWD/DVD"
