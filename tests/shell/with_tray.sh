#!/usr/bin/env bash
# Runs a test program on a private X server that has a notification area (Xvfb with trayer),
# so that the tray tests meet a real tray instead of skipping. MENSURA_TRAY_EXPECTED tells the
# test to wait for the tray and fail without one.
# Usage: with_tray.sh PROGRAM [ARGUMENTS...]
set -euo pipefail
source "$(dirname "$0")/../support/private_x_server.sh"
# Under AddressSanitizer: libxkbcommon-x11 strndup()s counted names that have no NUL after them,
# which the strict string checks take for an overflow.
export ASAN_OPTIONS="${ASAN_OPTIONS:-}:strict_string_checks=0"
pids=()
trap 'kill "${pids[@]}" 2>/dev/null || true' EXIT
start_x_server
pids+=("$X_SERVER")
trayer --edge top --align right --widthtype pixel --width 120 --height 24 >/dev/null 2>&1 &
pids+=($!)

export MENSURA_TRAY_EXPECTED=1
"$@"
