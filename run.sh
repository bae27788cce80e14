#!/usr/bin/env bash
# Builds Mensura (installing the Debian packages it needs) and starts it.
set -euo pipefail
cd "$(dirname "$0")"
source scripts/packages.sh
install_packages "${BUILD_PACKAGES[@]}"
cmake -S . -B build-release -G Ninja -DCMAKE_BUILD_TYPE=Release -DMENSURA_BUILD_TESTS=OFF
cmake --build build-release
exec ./build-release/src/shell/mensura "$@"
