@echo off
echo *mux to MMback.mpg
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\MMBackg.mpg" "C:\T\MMBackg.m2v"
echo *creating menufile MMMenu.mpg
"C:\tools\spumux.exe" "C:\T\MMSpu.xml" <"C:\T\MMBackg.mpg" > "C:\T\MMMenu.mpg"
