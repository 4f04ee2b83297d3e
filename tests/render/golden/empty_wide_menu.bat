@echo off
echo *creating EmptyBackg.m2v
"C:\tools\jpeg2yuv.exe" -n 1 -I t -L 1 -f 29.97 -j "C:\T\EmptyBackg.jpg" | "C:\tools\mpeg2enc.exe" -f 8 -q 1 -b 3000 -a 3 -n n -o "C:\T\EmptyBackg.m2v"
echo *mux to EmptyBackg.mpg
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\EmptyBackg.mpg" "C:\T\EmptyBackg.m2v"
