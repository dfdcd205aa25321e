#!/bin/sh
# Draws the window icons and the splash screens of OrvaneApp with ImageMagick.
# Run from this directory after changing the design; the PNG files are kept in the repository.
# Curves are drawn as single line segments: ImageMagick 6 draws stray lines for some polylines.
set -e

FONT_BOLD=DejaVu-Sans-Bold
FONT=DejaVu-Sans

# Line primitives through the points "x,y x,y ..." given as arguments.
segments() {
	prev=""
	for p in "$@"; do
		[ -n "$prev" ] && printf 'line %s %s ' "$prev" "$p"
		prev=$p
	done
}

# Points "x,y ..." of a smooth curve like a daily temperature course across the splash.
curvePoints() {
	awk -v base="$1" -v amp="$2" -v phase="$3" 'BEGIN {
		for (x = 0; x <= 640; x += 8) {
			y = base - amp*sin(x/640*6.2832*1.5 + phase) - 0.04*x;
			printf "%d,%.1f ", x, y
		}
	}'
}

# Icon: rounded square with a dark blue gradient, a white "O" and a rising chart curve
# (coordinates for 64 pixels, scaled).
icon() {
	size=$1
	scaled=$(echo "10,48 22,40 32,44 44,26 55,18" | awk -v s="$size" '{
		for (i = 1; i <= NF; i++) { split($i, c, ","); printf "%.1f,%.1f ", c[1]*s/64, c[2]*s/64 } }')
	r=$((size * 18 / 100))
	c=$(echo "$size" | awk '{ printf "%.1f", $1/2 }')
	top=$(echo "$size" | awk '{ printf "%.1f", $1*12/64 }')
	convert -size "${size}x${size}" gradient:'#2a66c4-#0a1d45' \
		\( -size "${size}x${size}" xc:black -fill white \
		   -draw "roundrectangle 0,0 $((size - 1)),$((size - 1)) $r,$r" \) \
		-alpha off -compose CopyOpacity -composite \
		-fill none -stroke white -strokewidth "$(echo "$size" | awk '{ print $1*6/64 }')" \
		-draw "circle $c,$c $c,$top" \
		-stroke '#ffb23f' -strokewidth "$(echo "$size" | awk '{ print $1*4.5/64 }')" \
		-draw "stroke-linecap round $(segments $scaled)" \
		"gfx/OrvaneApp_${size}x${size}.png"
}

# Splash: dark blue gradient, faint grid and chart curves, product name and subtitle.
splash() {
	lang=$1
	subtitle=$2
	convert -size 640x380 gradient:'#1d4f9c-#07152f' \
		-fill none -stroke 'rgba(255,255,255,0.07)' -strokewidth 1 \
		-draw "line 0,95 639,95 line 0,190 639,190 line 0,285 639,285" \
		-draw "line 160,0 160,379 line 320,0 320,379 line 480,0 480,379" \
		-stroke '#3b78c0' -strokewidth 3 \
		-draw "stroke-linecap round $(segments $(curvePoints 320 30 0))" \
		-stroke '#a9793d' -strokewidth 3 \
		-draw "stroke-linecap round $(segments $(curvePoints 350 18 1.2))" \
		-stroke none -fill white -font "$FONT_BOLD" -pointsize 76 -annotate +48+150 'Orvane' \
		-fill '#c9dcff' -font "$FONT" -pointsize 20 -annotate +52+190 "$subtitle" \
		-fill '#ffb23f' -draw "rectangle 52,204 172,208" \
		"gfx/spashscreen/Orvane_SplashScreen_${lang}.png"
}

mkdir -p gfx/spashscreen
icon 32
icon 48
icon 64
splash en 'Post-processing of hygrothermal simulations'
splash de 'Auswertung hygrothermischer Simulationen'
