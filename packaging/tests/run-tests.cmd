@echo off
rem Runs the tests of KivCtls on this machine: run-tests [/all-users] [x86] [x64] [com] [gui] [clients] [hostile]
rem Without names: all of them, for every architecture that this Windows has. results\results.html shows what came of
rem it, and results\results.xml tells other programs. Ends with 0 when all passed.
setlocal
cd /d "%~dp0"
set ARCHES=
set PROGRAMS=
set GROUPS=
set SCOPE=/user
set LEFT_OUT=-RegistrationTest.*:RegistrationFreeTest.*:RegsvrTest.*
:argument
if "%~1"=="" goto begin
if "%~1"=="/all-users" (
    set SCOPE=
    set LEFT_OUT=
) else if "%~1"=="x86" (
    set ARCHES=%ARCHES% x86
) else if "%~1"=="x64" (
    set ARCHES=%ARCHES% x64
) else (
    if not exist "x86\%~1\kiv-%~1-tests.exe" goto unknown
    set GROUPS=%GROUPS% %~1
)
shift
goto argument

:unknown
echo run-tests: there are no tests called %~1
exit /b 2

:begin
if "%ARCHES%"=="" (
    set ARCHES=x86
    if exist "%SystemRoot%\SysWOW64\kernel32.dll" set ARCHES=x86 x64
)
if "%KIV_FILTER%"=="" set KIV_FILTER=*
if "%GROUPS%"=="" set GROUPS=com gui clients hostile
if exist results rd /s /q results
md results
set KIV_SOURCE=%CD%\data
set KIV_CODES=%CD%\data\codes.db
set KIV_WRONG_COLUMNS=%CD%\data\wrong-columns.db
set KIV_NO_POSTGRESQL=there is no server
for %%a in (%ARCHES%) do call :architecture %%a
cscript //nologo report.js results %PROGRAMS%
exit /b %ERRORLEVEL%

:architecture
set KIVCTLS_OCX=%CD%\%1\KivCtls.ocx
start "" /wait "%1\KivRegister.exe" %SCOPE%
if errorlevel 1 echo The library could not be registered for %1.
for %%g in (%GROUPS%) do call :group %1 %%g
start "" /wait "%1\KivRegister.exe" /u %SCOPE%
exit /b

:group
echo %1 %2 ...
set PROGRAMS=%PROGRAMS% %1-%2
"%1\%2\kiv-%2-tests.exe" --gtest_color=no --gtest_output=xml:results\%1-%2.xml --gtest_filter=%KIV_FILTER%%LEFT_OUT% > "results\%1-%2.log" 2>&1
exit /b
