REM This batchfile will call all the other batchfiles
REM to create the DVD folders. 
REM It does NOT delete the content of the VIDEO_TS folder!
REM YOU should delete the content of the VIDEO_TS folder
REM (if any) before you run this batchfile.
REM You may change the other batch and xml files
REM for special purposes. Good luck!
REM The batch files for burning with Nero are
REM included (if the option was set), but the
REM 'Call' is disabled (with REM). If you are sure
REM what you are doing, just delete the REM statement.
REM
Call batchrun0.bat
Call MMBrun1.bat
REM Call xNERO.bat
REM Call ImgBurnRun.bat
