#!/usr/bin/python3
"""Reads the data section of a generation-6 binary output file with numpy.fromfile, the way a
Python user would load it, to compare with the DataIO dataVector benchmark of the binary file
(DataIO_read_bench, BM_DataVector/binary):

    numpy.fromfile(path, dtype="<f8", offset=OFFSET).reshape(-1, n + 1)

OFFSET (the data section offset) and n (the values per time point) are the two 32-bit words
after the 16-byte magic block. numpy reads time points and values in one array, so it does a
little less than dataVector, which gives the values alone. Prints the time of every repetition
and the best and median throughput of the data section in MB/s (10^6 bytes) and in MiB/s (2^20
bytes, the unit of Google Benchmark's bytes_per_second).

    DataIO_numpy_fromfile.py FILE [REPETITIONS]
"""
import os
import statistics
import struct
import sys
import time

import numpy


def main():
    if len(sys.argv) not in (2, 3):
        raise SystemExit(__doc__)
    path = sys.argv[1]
    repetitions = int(sys.argv[2]) if len(sys.argv) == 3 else 5
    with open(path, "rb") as f:
        head = f.read(24)
    if head[:8] != b"S6OBQXV!":
        raise SystemExit(f"{path}: not a generation-6 binary output file")
    offset, n = struct.unpack("<II", head[16:24])
    data_bytes = os.path.getsize(path) - offset
    rates = []
    for i in range(repetitions):
        start = time.perf_counter()
        cpu = time.process_time()
        values = numpy.fromfile(path, dtype="<f8", offset=offset).reshape(-1, n + 1)
        cpu = time.process_time() - cpu
        seconds = time.perf_counter() - start
        rates.append(data_bytes/seconds/1e6)
        print(f"run {i + 1}: {seconds*1000:.1f} ms (CPU {cpu*1000:.1f} ms), {rates[-1]:.0f} MB/s = "
              f"{rates[-1]*1e6/2**20:.0f} MiB/s, {values.shape[0]} time points x {values.shape[1] - 1} values")
        del values
    best = max(rates)
    median = statistics.median(rates)
    print(f"numpy {numpy.__version__}: data section {data_bytes/1e6:.1f} MB, "
          f"best {best:.0f} MB/s ({best*1e6/2**20:.0f} MiB/s), median {median:.0f} MB/s ({median*1e6/2**20:.0f} MiB/s)")


if __name__ == "__main__":
    main()
