@echo off
rem Writes the installation records that the demonstration suite begins with.
rem Run it as an administrator, from the folder that it was unpacked into.
setlocal EnableExtensions DisableDelayedExpansion
set "SUITE=%~dp0"
set "SUITE=%SUITE:~0,-1%"
set "KEY=HKLM\SOFTWARE\Korvanta\InstallLog"
set "REG=%SystemRoot%\System32\reg.exe"
if not exist "%SUITE%\trelin.exe" goto alone
call "%SUITE%\remove_records.cmd" /quiet
if errorlevel 1 goto refused
@COMMANDS@

echo The records are written. Now start trelin.exe.
if "%~1"=="" pause
exit /b 0

:alone
echo There is no trelin.exe beside this file. Please unpack the whole folder first.
if "%~1"=="" pause
exit /b 1

:refused
echo The records could not be written. Please right-click this file and choose
echo "Run as administrator".
if "%~1"=="" pause
exit /b 1
