@echo off
echo *creating MMback.m2v
"C:\Program Files\·\png2yuv.exe" -n 15 -I p -L 0 -f 29.97 -j "C:\MÅll 100%%\MMBackg.png" | "C:\Program Files\·\mpeg2enc.exe" -f 8 -I 0 -q 4 -b 5000 -a 3 -n n -o "C:\MÅll 100%%\MMBackg.m2v"
