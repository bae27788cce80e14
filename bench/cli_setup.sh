# SPDX-License-Identifier: GPL-3.0-or-later
# SPDX-FileCopyrightText: 2026 The Mensura developers
#
# Sourced by the CLI benches from the repository's top folder: builds mensura-cli in Release in
# $BUILD and sets CLI to it; makes a work folder (removed on exit) in $work and an empty
# settings file in $hive, so that the built-in catalogue and the default settings are measured.
cmake -S . -B "$BUILD" -G Ninja -DCMAKE_BUILD_TYPE=Release -DMENSURA_BUILD_TESTS=OFF >/dev/null
cmake --build "$BUILD" --target mensura-cli -- -j2 >/dev/null
CLI=$PWD/$BUILD/src/cli/mensura-cli

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
hive=$work/empty.reg
printf 'Windows Registry Editor Version 5.00\r\n\r\n' >"$hive"
