#!/usr/bin/python3
"""Reads a Tecplot ASCII data file with meshio's Tecplot reader and prints, for every zone, a line
"zone <solution time>" and one line "<centroid x> <centroid y> <signed area> <value>" per
quadrilateral cell (the area is positive when the corners run counter-clockwise).

meshio reads only the first zone of a file and knows no STRANDID or SOLUTIONTIME entries, so each
zone is handed to it on its own, after the file header, without those two entries (their value is
taken from the zone line here)."""
import io
import re
import sys

from meshio.tecplot import _tecplot


def main(path):
    with open(path) as f:
        text = f.read()
    header, *zones = re.split(r"(?m)^(?=ZONE )", text)
    for zone in zones:
        first, rest = zone.split("\n", 1)
        time = re.search(r"SOLUTIONTIME = ([^,]+)", first).group(1)
        first = re.sub(r", (STRANDID|SOLUTIONTIME) = [^,]+", "", first)
        mesh = _tecplot.read_buffer(io.StringIO(header + first + "\n" + rest))
        values = next(iter(mesh.cell_data.values()))[0]
        print("zone", time)
        for cell, value in zip(mesh.cells[0].data, values):
            corners = mesh.points[cell]
            centroid = corners.mean(axis=0)
            x, y = corners[:, 0], corners[:, 1]
            area = 0.5 * sum(x[i] * y[(i + 1) % 4] - x[(i + 1) % 4] * y[i] for i in range(4))
            print(repr(float(centroid[0])), repr(float(centroid[1])), repr(float(area)), repr(float(value)))


if __name__ == "__main__":
    main(sys.argv[1])
