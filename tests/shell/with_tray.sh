#!/usr/bin/env bash
# Runs a test program on a private X server that has a notification area (Xvfb with trayer),
# so that the tray tests meet a real tray instead of skipping. MENSURA_TRAY_EXPECTED tells the
# test to wait for the tray and fail without one.
# Usage: with_tray.sh PROGRAM [ARGUMENTS...]
set -euo pipefail
work=$(mktemp -d)
pids=()
trap 'kill "${pids[@]}" 2>/dev/null || true; rm -rf "$work"' EXIT

# Xvfb picks a free display number and writes it to descriptor 5.
Xvfb -displayfd 5 -screen 0 1280x1024x24 -nolisten tcp 5>"$work/display" 2>"$work/xvfb.log" &
pids+=($!)
for _ in $(seq 100); do
    [ -s "$work/display" ] && break
    sleep 0.1
done
if [ ! -s "$work/display" ]; then
    echo "Xvfb did not start:" >&2
    cat "$work/xvfb.log" >&2
    exit 1
fi
export DISPLAY=":$(cat "$work/display")"
trayer --edge top --align right --widthtype pixel --width 120 --height 24 >"$work/trayer.log" 2>&1 &
pids+=($!)

export QT_QPA_PLATFORM=xcb MENSURA_TRAY_EXPECTED=1
"$@"
