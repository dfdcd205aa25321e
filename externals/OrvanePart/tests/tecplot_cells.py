#!/usr/bin/python3
"""Reads a Tecplot ASCII data file with meshio's Tecplot reader and prints, for every zone, a line
"zone <solution time>", then one line "point <x> <y> <value>..." per node that carries values and
one line "cell <centroid x> <centroid y> <size> <value>..." per cell: the size is the signed area
of a quadrilateral (positive when the corners run counter-clockwise) or the length of a line
segment; the values in the order of the file's variables.

meshio reads only the first zone of a file and knows no STRANDID or SOLUTIONTIME entries, so each
zone is handed to it on its own, after the file header, without those two entries (their value is
taken from the zone line here)."""
import io
import re
import sys

from meshio.tecplot import _tecplot


def size(corners):
    x, y = corners[:, 0], corners[:, 1]
    if len(corners) == 2:
        return ((x[1] - x[0]) ** 2 + (y[1] - y[0]) ** 2) ** 0.5
    return 0.5 * sum(x[i] * y[(i + 1) % 4] - x[(i + 1) % 4] * y[i] for i in range(4))


def main(path):
    with open(path) as f:
        text = f.read()
    header, *zones = re.split(r"(?m)^(?=ZONE )", text)
    for zone in zones:
        first, rest = zone.split("\n", 1)
        time = re.search(r"SOLUTIONTIME = ([^,]+)", first).group(1)
        first = re.sub(r", (STRANDID|SOLUTIONTIME) = [^,]+", "", first)
        mesh = _tecplot.read_buffer(io.StringIO(header + first + "\n" + rest))
        print("zone", time)
        point_values = list(mesh.point_data.values())
        if point_values:
            for p, point in enumerate(mesh.points):
                print("point", *(repr(float(v)) for v in [point[0], point[1]] + [a[p] for a in point_values]))
        cell_values = [a[0] for a in mesh.cell_data.values()]
        for c, cell in enumerate(mesh.cells[0].data):
            corners = mesh.points[cell]
            centroid = corners.mean(axis=0)
            print("cell", *(repr(float(v)) for v in [centroid[0], centroid[1], size(corners)] + [a[c] for a in cell_values]))


if __name__ == "__main__":
    main(sys.argv[1])
