@echo off
echo *mux to MMback.mpg
"C:\Program Files\·\mplex.exe" -M -f 8 -o "C:\MÅll 100%%\MMBackg.mpg" "C:\MÅll 100%%\MMBackg.m2v" "C:\sound\–Ø 5%%.ac3"
echo *creating menufile MMMenu.mpg
"C:\Program Files\·\spumux.exe" "C:\MÅll 100%%\MMSpu.xml" <"C:\MÅll 100%%\MMBackg.mpg" > "C:\MÅll 100%%\MMMenu.mpg"
REM *creating letterbox menufile MMMenuL.mpg
"C:\Program Files\·\spumux.exe" -s1 "C:\MÅll 100%%\MMSpuL.xml" <"C:\MÅll 100%%\MMMenu.mpg" > "C:\MÅll 100%%\MMMenuL.mpg"
