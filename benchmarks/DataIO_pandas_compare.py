#!/usr/bin/python3
"""Reads the data section of a generation-6 ASCII output file with pandas, the way a Python user
would load it, to compare with the DataIO dataVector benchmark (DataIO_read_bench):

    pandas.read_csv(path, sep=r"\\s+", header=None, skiprows=N, engine="c")

N is the number of header lines (magic line up to the INDICES line). Prints the time of every
repetition and the best and median throughput of the data section in MB/s (10^6 bytes) and in
MiB/s (2^20 bytes, the unit of Google Benchmark's bytes_per_second, so the figures compare
directly with BM_AsciiReadAndDataVector).

    DataIO_pandas_compare.py FILE [REPETITIONS]
"""
import os
import statistics
import sys
import time

import pandas


def header_lines_and_bytes(path):
    """Number of header lines and their size in bytes (the data section offset)."""
    lines = 0
    offset = 0
    with open(path, "rb") as f:
        for line in f:
            lines += 1
            offset += len(line)
            if line.lstrip().startswith(b"INDICES"):
                return lines, offset
    raise SystemExit(f"{path}: no INDICES line, not a generation-6 ASCII output file")


def main():
    if len(sys.argv) not in (2, 3):
        raise SystemExit(__doc__)
    path = sys.argv[1]
    repetitions = int(sys.argv[2]) if len(sys.argv) == 3 else 5
    skip, offset = header_lines_and_bytes(path)
    data_bytes = os.path.getsize(path) - offset
    rates = []
    for i in range(repetitions):
        start = time.perf_counter()
        frame = pandas.read_csv(path, sep=r"\s+", header=None, skiprows=skip, engine="c")
        seconds = time.perf_counter() - start
        rates.append(data_bytes/seconds/1e6)
        print(f"run {i + 1}: {seconds:.3f} s, {rates[-1]:.1f} MB/s = {rates[-1]*1e6/2**20:.1f} MiB/s, "
              f"{frame.shape[0]} rows x {frame.shape[1]} columns")
        del frame
    best = max(rates)
    median = statistics.median(rates)
    print(f"pandas {pandas.__version__}: data section {data_bytes/1e6:.1f} MB, "
          f"best {best:.1f} MB/s ({best*1e6/2**20:.1f} MiB/s), median {median:.1f} MB/s ({median*1e6/2**20:.1f} MiB/s)")


if __name__ == "__main__":
    main()
