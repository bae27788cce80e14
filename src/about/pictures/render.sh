#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# SPDX-FileCopyrightText: 2026 The Mensura developers
#
# Renders the About window's pictures from their SVG sources into the PNG files that are
# compiled in (the program itself reads no SVG). Needs rsvg-convert (Debian: librsvg2-bin).
set -eu
cd "$(dirname "$0")"
for icon in largeicon oldicon; do
    rsvg-convert -w 64 -h 64 "$icon.svg" -o "$icon.png"
    rsvg-convert -w 128 -h 128 "$icon.svg" -o "$icon@2x.png"
done
rsvg-convert -w 320 -h 240 dedicatepic.svg -o dedicatepic.png
rsvg-convert -w 640 -h 480 dedicatepic.svg -o dedicatepic@2x.png
