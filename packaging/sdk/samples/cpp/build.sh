#!/bin/sh
# Builds the C++ samples with mingw-w64: ./build.sh [x86|x64]
set -e
cd "$(dirname "$0")"
case ${1:-x86} in
x86) compiler=i686-w64-mingw32-g++ ;;
x64) compiler=x86_64-w64-mingw32-g++ ;;
*) echo "usage: ./build.sh [x86|x64]" >&2 && exit 2 ;;
esac
options='-std=c++17 -O2 -Wall -Wextra -static -I../../include'
# shellcheck disable=SC2086 # options
{
    "$compiler" $options AtlAxWin.cpp -o AtlAxWin.exe -lole32 -loleaut32 -luuid
    "$compiler" $options OwnContainer.cpp Container.cpp -o OwnContainer.exe -lole32 -loleaut32 -luuid
}
