#!/bin/sh
# Reads one 100 MB CSV table with OVP::TableReader and with pandas.read_csv, side by side in one
# run (docs/performance.md, "CSV table reader against pandas").
#   csv_vs_pandas.sh <FileReader_bench executable> [MB] [REPETITIONS]
# Writes the table with Python (time in hours and 9 value columns of three decimals) to
# ${ORVANE_BENCH_DIR:-/tmp/orvane-csv-vs-pandas}/table.csv unless it is there, then alternates
# the two readers REPETITIONS times (default 5). Each prints its own reading time (the process
# start and the import of pandas are not counted); /usr/bin/time adds CPU time and peak memory
# of the whole process.
set -eu
if [ $# -lt 1 ]; then
  echo "usage: $0 <FileReader_bench> [MB] [REPETITIONS]" >&2
  exit 2
fi
bench=$1
mb=${2:-100}
reps=${3:-5}
python=/usr/bin/python3    # Debian's python3-pandas
dir=${ORVANE_BENCH_DIR:-/tmp/orvane-csv-vs-pandas}
table=$dir/table.csv
mkdir -p "$dir"
if [ ! -f "$table" ]; then
  "$python" - "$table" "$mb" <<'PY'
import random, sys
path, mb = sys.argv[1], float(sys.argv[2])
rng = random.Random(13)
with open(path + ".part", "w", newline="\n") as f:
    f.write("Time [h],T_out [C],RH_out [%],T_in [C],RH_in [%],T_wall [C],RH_wall [%],Rad [W/m2],Wind [m/s],P [hPa]\n")
    line = 0
    while f.tell() < mb * 1e6:
        f.write("%.2f," % (line * 0.25) + ",".join("%.3f" % rng.uniform(-20, 80) for _ in range(9)) + "\n")
        line += 1
import os
os.rename(path + ".part", path)
PY
fi
ls -l "$table"
i=1
while [ "$i" -le "$reps" ]; do
  /usr/bin/time -f "  whole process: %U s user, %S s system, %e s wall, %M kB peak" "$bench" --read-once "$table"
  /usr/bin/time -f "  whole process: %U s user, %S s system, %e s wall, %M kB peak" "$python" -c '
import sys, time, pandas
start = time.perf_counter()
frame = pandas.read_csv(sys.argv[1])
seconds = time.perf_counter() - start
print("pandas %s read_csv: %d rows x %d columns, %.3f s" % (pandas.__version__, frame.shape[0], frame.shape[1], seconds))
' "$table"
  i=$((i + 1))
done
