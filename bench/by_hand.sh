#!/bin/bash
# What somebody would type to author the sample with the same tools and options that a run of Torvane calls, its menu
# pictures and control files given. whole_run.sh compares the two.
#
#   bench/by_hand.sh MEDIA WORK OUT       WORK holds the pictures, *Spu.xml and Author.xml with the paths of this machine
set -e
media=$1 work=$2 out=$3
export VIDEO_FORMAT=pal

for film in First_film:film1 Second_film:film2; do
  mplex -M -f 8 -o "$work/${film%:*}.mpg" "$media/${film#*:}.m2v" "$media/${film#*:}.ac3"
done
for menu in MM MM1; do
  png2yuv -n 1 -I p -L 0 -f 25 -j "$work/${menu}Backg.png" |
    mpeg2enc -f 8 -I 0 -q 1 -b 7000 -a 2 -n p -o "$work/${menu}Backg.m2v"
  mplex -M -f 8 -o "$work/${menu}Backg.mpg" "$work/${menu}Backg.m2v"
  spumux "$work/${menu}Spu.xml" <"$work/${menu}Backg.mpg" >"$work/${menu}Menu.mpg"
done
jpeg2yuv -n 1 -I t -L 1 -f 25 -j "$work/EmptyBackg.jpg" |
  mpeg2enc -f 8 -q 1 -b 3000 -a 2 -n p -o "$work/EmptyBackg.m2v"
mplex -M -f 8 -o "$work/EmptyBackg.mpg" "$work/EmptyBackg.m2v"
dvdauthor -x "$work/Author.xml"
genisoimage -dvd-video -V SAMPLE -udf -o "$out/SAMPLE.ISO" "$out/DVD"
