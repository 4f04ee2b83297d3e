#!/bin/sh
# Makes the pictures that lie beside the programs: the menu background of a new project and the stand-in for an
# animation on the canvas. They are committed; run this (ImageMagick) only to change them.
set -eu
cd "$(dirname "$0")/../data/program"

# A quiet slate blue, lighter behind the middle of the menu, so that white and black text both read well.
convert -size 720x576 gradient:'#5c7186-#2c3947' \
  \( -size 1100x820 radial-gradient:'#7f93a6-#202a35' -gravity center -extent 720x576 \) \
  -compose blend -define compose:args=55,45 -composite \
  -strip -sampling-factor 4:2:0 -quality 92 default.jpg

# A strip of film with a triangle on it.
holes=''
for x in 7 22 37 52 67 82; do
  holes="$holes rectangle $x,6 $((x + 6)),12 rectangle $x,65 $((x + 6)),71"
done
convert -size 95x78 xc:'#26303a' +antialias -fill '#e8ecef' -draw "$holes" -fill '#8fa3b5' -draw 'rectangle 0,18 94,59' \
  -fill '#26303a' -draw 'polygon 39,25 39,53 62,39' -colors 8 -strip avisynthpic.gif
