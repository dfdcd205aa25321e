#!/bin/sh
# Writes the seed corpus of the DataIO fuzz targets: small files of every variant (generation 6
# and 5, ASCII and binary, every output kind, both geometries) made by the sample data generator.
#   make_seed_corpus.sh <SampleDataGenerator executable> <corpus directory>
# Output files go to <corpus directory>/output, geometry files to <corpus directory>/geometry, the
# climate and statistics test files of the readers' tests (and the generator's CCD file) to
# <corpus directory>/climate, the CSV/TSV table and logger test files to <corpus directory>/table.
set -eu
if [ $# -ne 2 ]; then
  echo "usage: $0 <SampleDataGenerator> <corpus directory>" >&2
  exit 2
fi
generator=$1
corpus=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# three hours of a 9-element wall and a 6 x 6 corner keep every file a few kB
"$generator" --dir="$work/set" --hours=3 --elements=9 --detail-cells=6 --detail-step=1 > /dev/null
mkdir -p "$corpus/output" "$corpus/geometry"
# output files of both generations (not the CCD climate file: no output container)
cp "$work"/set/*.s6o "$work"/set/*.s6b "$work"/set/*.out "$corpus/output/"
cp "$work"/set/*.g6a "$work"/set/*.g6b "$corpus/geometry/"
# a file that is still being written: the last ASCII line without its line end, a cut binary record
head -c -3 "$work/set/wall_temperature.s6o" > "$corpus/output/growing_wall_temperature.s6o"
head -c -5 "$work/set/wall_temperature.s6b" > "$corpus/output/growing_wall_temperature.s6b"
# the readers' test files written by tools/ReaderTestFiles (not their expectations)
readers=$(dirname "$0")/../../externals/OrvanePart/tests/data/readers
mkdir -p "$corpus/climate" "$corpus/table"
cp "$work"/set/*.ccd "$readers"/*.ccd "$readers"/*.wac "$readers"/*_stats.* "$corpus/climate/"
rm -f "$corpus"/climate/*.expected
for f in "$readers"/table_* "$readers"/logger_*; do
  case "$f" in *.expected) ;; *) cp "$f" "$corpus/table/" ;; esac
done
ls -l "$corpus/output" "$corpus/geometry" "$corpus/climate" "$corpus/table" | awk 'NF > 5 { n++; s += $5 } END { print n " seed files, " s " bytes" }'
