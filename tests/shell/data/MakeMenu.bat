@echo off
echo *creating MMback.m2v
"C:\Tools\png2yuv.exe" -n 1 -I p -L 0 -f 25 -j "{T}\MMBackg.png" | "C:\Tools\mpeg2enc.exe" -f 8 -I 0 -q 1 -b 7000 -a 2 -n p -o "{T}\MMBackg.m2v"
echo *mux to MMback.mpg
"C:\Tools\mplex.exe" -M -f 8 -o "{T}\MMBackg.mpg" "{T}\MMBackg.m2v"
