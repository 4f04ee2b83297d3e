@echo off
echo *mux to MMback.mpg
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\MMBackgN.mpg" "C:\T\MMBackg.m2v" "C:\a.mp2"
"C:\tools\insnav.exe" -o "C:\T\MMBackg.mpg" "C:\T\MMBackgN.mpg"
erase "C:\T\MMBackgN.mpg"
echo *creating menufile MMMenu.mpg
"C:\tools\spumux.exe" "C:\T\MMSpu.xml" <"C:\T\MMBackg.mpg" > "C:\T\MMMenu.mpg"
