#!/usr/bin/python3
"""Redraw time of one noisy curve at 1600 x 1000 pixels in matplotlib (Agg, path simplification on,
as by default), the peer of BM_LongCurve in SciChart_render_bench.

    /usr/bin/python3 benchmarks/long_curve_matplotlib.py 1000000 10000000
"""
import sys
import time

import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt
import numpy as np


def redraw_ms(n, repeats=5):
    rng = np.random.default_rng(3)
    x = np.arange(n, dtype=float)
    y = 10*np.sin(6.2832*x/n) + rng.normal(0, 1, n)
    fig = plt.figure(figsize=(16, 10), dpi=100)
    ax = fig.add_subplot()
    ax.plot(x, y, lw=1)
    fig.canvas.draw()
    times = []
    for _ in range(repeats):
        start = time.perf_counter()
        fig.canvas.draw()
        times.append(time.perf_counter() - start)
    plt.close(fig)
    return 1000*min(times)


for arg in sys.argv[1:] or ["1000000", "10000000"]:
    print("matplotlib redraw of %s points: %.1f ms (best of 5)" % (arg, redraw_ms(int(arg))))
