@echo off
"C:\Tools\mkisofs.exe" -dvd-video -V "Ü 1" -udf -o "{T}\Ü 1.ISO" "{T}\Out\DVD"
