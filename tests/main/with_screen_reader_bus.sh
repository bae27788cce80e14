#!/usr/bin/env bash
# Starts the desktop program as a screen reader meets it, on a private X server with an
# accessibility bus (AT-SPI) on a private D-Bus session, and runs a client script against it.
# Usage: with_screen_reader_bus.sh PROGRAM CLIENT_SCRIPT
set -euo pipefail
program=$1
client=$2
source "$(dirname "$0")/../support/private_x_server.sh"
# Under AddressSanitizer: libxkbcommon-x11 strndup()s counted names that have no NUL after them,
# which the strict string checks take for an overflow.
export ASAN_OPTIONS="${ASAN_OPTIONS:-}:strict_string_checks=0"
work=$(mktemp -d)
trap 'kill "$X_SERVER" 2>/dev/null || true; rm -rf "$work"' EXIT
start_x_server

# A hive of a user who has run the program before: no first-run help window in front. The
# quantities show as tabs when MENSURA_TABS is 1, else as buttons.
printf 'Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Software\\Mensura\\settings]\r\n"StartOnce"="1"\r\n"tabs"="%s"\r\n' \
    "${MENSURA_TABS:-0}" >"$work/hive.reg"
export PROGRAM="$program" CLIENT="$client" HIVE="$work/hive.reg" MENSURA_INSTANCE="a11y-$$" LOG="$work/program.log"
dbus-run-session -- bash -c '
    /usr/libexec/at-spi-bus-launcher --launch-immediately --a11y=1 2>/dev/null &
    bus=$!
    QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 "$PROGRAM" --hive "$HIVE" 2>"$LOG" &
    app=$!
    status=0
    /usr/bin/python3 "$CLIENT" || { status=$?; echo "The program wrote:"; cat "$LOG"; }
    kill $app $bus 2>/dev/null
    exit $status' 2> >(grep -v "Failed to set fd limit" >&2)
