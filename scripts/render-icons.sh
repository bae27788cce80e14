#!/usr/bin/env bash
# Renders the application icon resources/icons/mensura.svg into the PNG sizes a desktop's icon
# theme looks for (resources/icons/hicolor/<size>/mensura.png, committed). Run after changing
# the SVG. Needs rsvg-convert (Debian package librsvg2-bin).
set -euo pipefail
cd "$(dirname "$0")/../resources/icons"
for size in 16 22 24 32 48 64 128 256; do
    mkdir -p "hicolor/${size}x${size}"
    rsvg-convert -w "$size" -h "$size" mensura.svg -o "hicolor/${size}x${size}/mensura.png"
done
