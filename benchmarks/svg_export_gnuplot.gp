# The demo's first chart (outdoor temperature and relative humidity in January 2023, two y axes)
# drawn by gnuplot's svg terminal: the peer of a single-chart SVG export of Orvane.
# gnuplot -e "data='examples/demo/data/climate.s6o'; out='/tmp/climate.svg'" benchmarks/svg_export_gnuplot.gp
set terminal svg size 1000,600 font "DejaVu Sans,11" background rgb "white"
set output out
set title "Outdoor climate in January 2023" font ",13"
set xlabel "Date"
set ylabel "Temperature [C]"
set y2label "Relative humidity [%]"
set ytics nomirror
set y2tics
set grid
set key bottom center horizontal
set xdata time
set timefmt "%s"
set format x "%d %b"
start = 1672531200
plot data every ::0::743 using (start + $1*3600):2 with lines lc rgb "#c0504d" lw 1.5 title "Outdoor air temperature", \
     data every ::0::743 using (start + $1*3600):3 axes x1y2 with lines lc rgb "#4f81bd" lw 1.5 title "Outdoor relative humidity"
