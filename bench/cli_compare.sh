#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# SPDX-FileCopyrightText: 2026 The Mensura developers
#
# mensura-cli against GNU units, whole processes timed side by side:
#   1. one conversion:  mensura-cli convert 12 inch "metre (m)"  vs  units -t '12 inch' m
#      (target: mensura-cli within 1.5 times the time of GNU units)
#   2. the same 100 000 conversions: mensura-cli convert --batch reading tab-separated lines
#      vs GNU units reading "have" and "want" lines from standard input
#      (target: mensura-cli under 0.2 s)
# mensura-cli is built in Release in build-release (BUILD=folder to change it). Timing uses
# hyperfine when it is installed (apt-get install hyperfine), else a loop around date +%s%N.
# Both programs run against their own data only: mensura-cli gets an empty settings file, so
# the built-in catalogue and the default settings.
set -euo pipefail
cd "$(dirname "$0")/.."

BUILD=${BUILD:-build-release}
LINES=${LINES:-100000}
RUNS=${RUNS:-20}

command -v units >/dev/null || { echo "GNU units is needed: apt-get install units" >&2; exit 1; }
source bench/cli_setup.sh

# The same conversions for both: Mensura's unit names (with the quantity) and GNU units' ones.
awk -v lines="$LINES" -v batch="$work/batch.tsv" -v pairs="$work/pairs.txt" 'BEGIN {
    srand(20260101)
    n = split("inch (in)|metre (m)|Length|inch|m;" \
              "foot (ft)|metre (m)|Length|ft|m;" \
              "mile (mi)|kilometre (km)|Length|mile|km;" \
              "pound (avoirdupois) (lb)|kilogram (kg)|Mass|lb|kg;" \
              "degree (°)|radian (rad)|Angle|degree|radian;" \
              "pound per square inch (psi)|kilopascal (kPa)|Pressure or Stress|psi|kPa;" \
              "kilowatt hour (kW·h)|joule (W·s) (J)|Energy|kWh|J;" \
              "hour (h)|second (s)|Time|hour|s;" \
              "light year (ly)|metre (m)|Length|lightyear|m;" \
              "Celsius (°C)|Fahrenheit (°F)|Temperature|tempC|tempF", kinds, ";")
    for (i = 0; i < lines; i++) {
        split(kinds[i % n + 1], k, "|")
        value = int(rand() * 10 ^ (1 + int(rand() * 6))) / 100
        printf "%s\t%s\t%s\t%s\n", value, k[1], k[2], k[3] > batch
        if (k[4] == "tempC")
            printf "tempC(%s)\ntempF\n", value > pairs
        else
            printf "%s %s\n%s\n", value, k[4], k[5] > pairs
    }
}'

# Both must convert every line before their times mean anything.
mensura_lines=$("$CLI" convert --batch --hive "$hive" <"$work/batch.tsv" | grep -cv '^error: ' || true)
units_lines=$(units -t <"$work/pairs.txt" | wc -l)
[ "$mensura_lines" -eq "$LINES" ] || { echo "mensura-cli converted $mensura_lines of $LINES lines" >&2; exit 1; }
[ "$units_lines" -eq "$LINES" ] || { echo "GNU units converted $units_lines of $LINES lines" >&2; exit 1; }
echo "mensura-cli: $("$CLI" convert 12 inch 'metre (m)' --hive "$hive")    GNU units: $(units -t '12 inch' m)"
echo

single_mensura="$CLI convert 12 inch 'metre (m)' --hive $hive"
single_units="units -t '12 inch' m"
batch_mensura="$CLI convert --batch --hive $hive < $work/batch.tsv > /dev/null"
batch_units="units -t < $work/pairs.txt > /dev/null"

# Mean seconds of a command over RUNS runs (after one warm-up run), without hyperfine.
mean_seconds() {
    local runs=$1 command=$2 total=0 start end
    bash -c "$command" >/dev/null
    for ((i = 0; i < runs; i++)); do
        start=$(date +%s%N)
        bash -c "$command" >/dev/null
        end=$(date +%s%N)
        total=$((total + end - start))
    done
    awk -v ns="$total" -v n="$runs" 'BEGIN { printf "%.6f", ns / n / 1e9 }'
}

if command -v hyperfine >/dev/null; then
    hyperfine --shell=none --warmup 5 --runs $((RUNS * 5)) --export-json "$work/single.json" \
        -n "mensura-cli, one conversion" "$single_mensura" -n "GNU units, one conversion" "$single_units"
    hyperfine --warmup 1 --runs "$RUNS" --export-json "$work/batch.json" \
        -n "mensura-cli, $LINES conversions" "$batch_mensura" -n "GNU units, $LINES conversions" "$batch_units"
    read -r s_mensura s_units < <(python3 -c 'import json,sys; r=json.load(open(sys.argv[1]))["results"]; print(r[0]["mean"], r[1]["mean"])' "$work/single.json")
    read -r b_mensura b_units < <(python3 -c 'import json,sys; r=json.load(open(sys.argv[1]))["results"]; print(r[0]["mean"], r[1]["mean"])' "$work/batch.json")
else
    echo "(hyperfine is not installed: timing with date, $RUNS runs each; the shell's start is included)"
    s_mensura=$(mean_seconds $((RUNS * 5)) "$single_mensura")
    s_units=$(mean_seconds $((RUNS * 5)) "$single_units")
    b_mensura=$(mean_seconds "$RUNS" "$batch_mensura")
    b_units=$(mean_seconds "$RUNS" "$batch_units")
fi

echo
awk -v sm="$s_mensura" -v su="$s_units" -v bm="$b_mensura" -v bu="$b_units" -v lines="$LINES" 'BEGIN {
    printf "one conversion:    mensura-cli %6.2f ms   GNU units %6.2f ms   ratio %.2f (target <= 1.5)  %s\n",
        sm * 1000, su * 1000, sm / su, sm / su <= 1.5 ? "met" : "MISSED"
    printf "%d conversions: mensura-cli %6.3f s    GNU units %6.3f s    (target < 0.2 s)         %s\n",
        lines, bm, bu, bm < 0.2 ? "met" : "MISSED"
}'
