@echo off
echo.
echo (shrink and) mux video and audio files
erase "C:\T\TempAudioMpg\*.*" /Q
rmdir "C:\T\TempAudioMpg"
mkdir "C:\T\TempAudioMpg"
"C:\tools\png2yuv.exe" -n 1 -I p -L 0 -f 25 -j "C:\T\FPA1#01.png" | "C:\tools\mpeg2enc.exe" -f 8 -q 1 -b 5000 -a 2 -o "C:\T\TempAudioMpg\FPA1#01.m2v"
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\TempAudioMpg\tFPA1#01.mpg" "C:\T\TempAudioMpg\FPA1#01.m2v" "C:\v\1.ac3"
erase "C:\T\TempAudioMpg\FPA1#01.m2v"
"C:\tools\insnav.exe" -o "C:\T\TempAudioMpg\FPA1#01.mpg" "C:\T\TempAudioMpg\tFPA1#01.mpg"
erase "C:\T\TempAudioMpg\tFPA1#01.mpg"
"C:\tools\png2yuv.exe" -n 1 -I p -L 0 -f 25 -j "C:\T\FPA1#02.png" | "C:\tools\mpeg2enc.exe" -f 8 -q 1 -b 5000 -a 2 -o "C:\T\TempAudioMpg\FPA1#02.m2v"
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\TempAudioMpg\tFPA1#02.mpg" "C:\T\TempAudioMpg\FPA1#02.m2v" "C:\v\Lied „.ac3"
erase "C:\T\TempAudioMpg\FPA1#02.m2v"
"C:\tools\insnav.exe" -o "C:\T\TempAudioMpg\FPA1#02.mpg" "C:\T\TempAudioMpg\tFPA1#02.mpg"
erase "C:\T\TempAudioMpg\tFPA1#02.mpg"
"C:\tools\png2yuv.exe" -n 1 -I p -L 0 -f 25 -j "C:\T\FPA2#01.png" | "C:\tools\mpeg2enc.exe" -f 8 -q 1 -b 5000 -a 2 -o "C:\T\TempAudioMpg\FPA2#01.m2v"
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\TempAudioMpg\tFPA2#01.mpg" "C:\T\TempAudioMpg\FPA2#01.m2v" "C:\v\3.mp2"
erase "C:\T\TempAudioMpg\FPA2#01.m2v"
"C:\tools\insnav.exe" -o "C:\T\TempAudioMpg\FPA2#01.mpg" "C:\T\TempAudioMpg\tFPA2#01.mpg"
erase "C:\T\TempAudioMpg\tFPA2#01.mpg"
