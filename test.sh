#!/usr/bin/env bash
# Builds Mensura with its tests (installing the Debian packages they need) and runs them.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/packages.sh
install_packages "${BUILD_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=Debug -DMENSURA_WERROR=ON
cmake --build build
ctest --test-dir build --output-on-failure -j2
