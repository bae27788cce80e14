#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# SPDX-FileCopyrightText: 2026 The Mensura developers
#
# mensura-cli convert --batch over lines that name units as handbooks write them ("kWh",
# "m2", "psi", "F" and "C", "lbf-ft", "cfm", "sq ft", ...), mixed, without a quantity field:
# every line's names go through the unit matcher and the choice of the quantity that holds
# both (target: 100 000 lines under 0.1 s).
# mensura-cli is built in Release in build-release (BUILD=folder to change it); LINES and RUNS
# change the work. Timing uses hyperfine when it is installed, else a loop around date +%s%N.
# KEEP=file keeps the generated lines there. mensura-cli gets an empty settings file: the
# built-in catalogue and the default settings.
set -euo pipefail
cd "$(dirname "$0")/.."

BUILD=${BUILD:-build-release}
LINES=${LINES:-100000}
RUNS=${RUNS:-20}

source bench/cli_setup.sh
lines=${KEEP:-$work/spellings.tsv}

awk -v lines="$LINES" 'BEGIN {
    srand(20260102)
    n = split("kWh|MJ;m2|ft2;psi|kPa;F|C;lbf-ft|N-m;cfm|l/s;gpm|m3/h;BTU|kJ;" \
              "ton|kg;hp|kW;C|F;in3|cm3;sq ft|m^2;lbs|kg;kph|mph;ft-lb|J;inHg|kPa;" \
              "um|mm;N/mm2|psi;Nm|lbf-ft;ft^3/min|l/min;degF|degR|Temperature", pairs, ";")
    for (i = 0; i < lines; i++) {
        k = split(pairs[int(rand() * n) + 1], p, "|")
        value = int(rand() * 10 ^ (1 + int(rand() * 6))) / 100
        if (k == 3)
            printf "%s\t%s\t%s\t%s\n", value, p[1], p[2], p[3]
        else
            printf "%s\t%s\t%s\n", value, p[1], p[2]
    }
}' >"$lines"

# Every line must convert before the time means anything. "degF" and "degR" are units of
# Temperature and of Temperature Interval: those lines name their quantity.
converted=$("$CLI" convert --batch --hive "$hive" <"$lines" | grep -cv '^error: ' || true)
[ "$converted" -eq "$LINES" ] || { echo "mensura-cli converted $converted of $LINES lines" >&2; exit 1; }
echo "kinds of lines: $(cut -f2,3 "$lines" | sort -u | wc -l), all $LINES converted"

batch="$CLI convert --batch --hive $hive < $lines > /dev/null"
if command -v hyperfine >/dev/null; then
    hyperfine --warmup 2 --runs "$RUNS" -n "mensura-cli, $LINES lines of handbook spellings" "$batch"
else
    echo "(hyperfine is not installed: timing with date, $RUNS runs; the shell's start is included)"
    times=()
    bash -c "$batch"
    for ((i = 0; i < RUNS; i++)); do
        start=$(date +%s%N)
        bash -c "$batch"
        end=$(date +%s%N)
        times+=($((end - start)))
    done
    printf '%s\n' "${times[@]}" | sort -n | awk -v lines="$LINES" '{ t[NR] = $1 } END {
        printf "%d lines: min %.3f s, median %.3f s (target < 0.1 s)  %s\n", lines,
            t[1] / 1e9, t[int((NR + 1) / 2)] / 1e9, t[int((NR + 1) / 2)] < 1e8 ? "met" : "MISSED"
    }'
fi
