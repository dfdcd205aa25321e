#!/usr/bin/python3
"""The peer of the Tecplot conversion figure in docs/performance.md: reads the values of an ASCII
output file with numpy.loadtxt (the header lines up to INDICES skipped) and writes them as text
with numpy.savetxt in shortest round-trip form, one time point per line, without mesh.
    tecplot_numpy_peer.py IN.s6o OUT.txt"""
import sys

import numpy


def main(source, target):
    with open(source) as f:
        header = 0
        for line in f:
            header += 1
            if line.lstrip().startswith("INDICES"):
                break
    values = numpy.loadtxt(source, skiprows=header)
    numpy.savetxt(target, values, fmt="%.17g")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
