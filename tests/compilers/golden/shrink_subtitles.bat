@echo off
echo.
echo (shrink and) mux video and audio files
"C:\tools\requant.exe" 1.2500 "C:\v\a.m2v" "C:\T\Film1_req.mpv"
echo.
"C:\tools\mplex.exe" -M -f 8 -o "C:\T\Film1.mpg" "C:\T\Film1_req.mpv"
attrib -r "C:\T\Film1_req.mpv"
erase "C:\T\Film1_req.mpv"
echo.
"C:\tools\spumux.exe" -ma -w -s0 "C:\T\Spu1Sub1.xml" <"C:\T\Film1.mpg" > "C:\T\Film1_SUB1.mpg" 
erase "C:\T\Film1.mpg" 
echo.
erase "C:\T\TempSub.d\*.*" /Q
rmdir "C:\T\TempSub.d"
erase "C:\T\TempSub.sup"
copy "C:\v\b.SUP" "C:\T\TempSub.sup"
"C:\tools\sup2png.exe" "C:\T\TempSub.sup" "C:\T\Film1.pal"
copy "C:\T\TempSub.d\spumux.xml" "C:\T\Spu2Sub1.xml"
"C:\tools\spumux.exe" -w -s1 "C:\T\Spu2Sub1.xml" <"C:\T\Film1_SUB1.mpg" > "C:\T\Film1_SUB2.mpg" 
erase "C:\T\Film1_SUB1.mpg" 
echo.
"C:\tools\spumux.exe" -w -s2 "C:\T\Spu1Sub2.xml" <"C:\v\b.m2v" > "C:\T\Film2_SUB1.mpg" 
echo.
