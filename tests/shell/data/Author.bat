@echo off
echo.
echo author DVD
"C:\Tools\dvdauthor.exe" -w -r -x "{T}\Author.xml"
