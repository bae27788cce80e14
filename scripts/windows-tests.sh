#!/usr/bin/env bash
# Builds the Windows registry back end of the settings store with the mingw-w64 cross compiler
# and runs its tests under wine, in a wine prefix of its own that is removed afterwards.
# Usage: scripts/windows-tests.sh [BUILD_DIR]   (default: build-windows)
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh
install_packages cmake ninja-build g++-mingw-w64-x86-64-posix wine64 wine

build_dir=${1:-build-windows}
cmake -S tests/windows -B "$build_dir" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64.cmake" -DCMAKE_BUILD_TYPE=Debug
cmake --build "$build_dir" -j2

export WINEPREFIX
WINEPREFIX=$(mktemp -d "${TMPDIR:-/tmp}/mensura-wine.XXXXXX")
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY=
cleanup() {
    wineserver -k 2>/dev/null || true
    rm -rf "$WINEPREFIX"
}
trap cleanup EXIT
# Making the prefix takes most of the time; the tests then share its running wineserver.
wineboot -i >/dev/null 2>&1
ctest --test-dir "$build_dir" --output-on-failure -j2
