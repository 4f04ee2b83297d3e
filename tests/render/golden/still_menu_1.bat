@echo off
echo *creating MMback.m2v
"C:\tools\png2yuv.exe" -n 1 -I p -L 0 -f 25 -j "C:\T\MMBackg.png" | "C:\tools\mpeg2enc.exe" -f 8 -I 0 -q 1 -b 7000 -a 2 -n p -o "C:\T\MMBackg.m2v"
