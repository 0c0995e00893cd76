@echo off
rem Builds the C++ samples with the g++ or the cl that is on the path.
cd /d "%~dp0"
where cl >nul 2>nul && goto msvc
g++ -std=c++17 -O2 -static -I..\..\include AtlAxWin.cpp -o AtlAxWin.exe -lole32 -loleaut32 -luuid || exit /b 1
g++ -std=c++17 -O2 -static -I..\..\include OwnContainer.cpp Container.cpp -o OwnContainer.exe -lole32 -loleaut32 -luuid
exit /b
:msvc
cl /nologo /std:c++17 /EHsc /O2 /I..\..\include AtlAxWin.cpp ole32.lib oleaut32.lib user32.lib uuid.lib || exit /b 1
cl /nologo /std:c++17 /EHsc /O2 /I..\..\include OwnContainer.cpp Container.cpp ole32.lib oleaut32.lib user32.lib uuid.lib
