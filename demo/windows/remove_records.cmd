@echo off
rem Removes the installation records of the demonstration suite. Run it as an
rem administrator.
setlocal EnableExtensions DisableDelayedExpansion
set "KEY=HKLM\SOFTWARE\Korvanta\InstallLog"
set "REG=%SystemRoot%\System32\reg.exe"

"%REG%" query "%KEY%" /reg:@BITS@ >nul 2>&1
if errorlevel 1 goto done
rem It takes an administrator to write a value; this one goes again below.
"%REG%" add "%KEY%" /v "RUNTIME" /d "0" /f /reg:@BITS@ >nul 2>&1
if errorlevel 1 goto refused
rem Not each of these is there.
@COMMANDS@

:done
if "%~1"=="" echo The records of the demonstration suite are gone.
if "%~1"=="" pause
exit /b 0

:refused
echo The records could not be removed. Please right-click this file and choose
echo "Run as administrator".
if "%~1"=="" pause
exit /b 1
