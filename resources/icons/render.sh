#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# SPDX-FileCopyrightText: 2026 The Mensura developers
#
# Renders the SVG icons into the PNG files the program carries. The program shows PNGs: they
# need no SVG renderer at start-up, which keeps the first window quick to appear. Run this
# after editing an SVG and commit the PNGs with it. Needs ImageMagick with an SVG reader.
set -eu
cd "$(dirname "$0")"
mkdir -p png
render() { convert -background none -density "$3" "$1.svg" -resize "$2x$2" "png/$4"; }
for size in 16 32 48 64; do
    render smallicon $size 2400 "smallicon-$size.png"
done
for icon in cardfileicon markicon calcicon; do
    for size in 16 32 48; do
        render $icon $size 768 "$icon-$size.png"
    done
done
