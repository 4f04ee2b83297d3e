@echo off
echo *creating menufile MMMenu.mpg
"C:\Tools\spumux.exe" -w "{T}\MMSpu.xml" <"{T}\MMBackg.mpg" > "{T}\MMMenu.mpg"
