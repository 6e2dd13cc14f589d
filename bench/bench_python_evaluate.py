#!/usr/bin/python3
"""Cost of evaluating a function over a numpy array from Python, as a ratio
to the same C++ loop without Python around it (timed inside the module, in
the same run). The Python call adds the argument conversion and the output
array; the loop itself is the same code.

    PYTHONPATH=build/release/python /usr/bin/python3 bench/bench_python_evaluate.py
"""
import time

import numpy as np
import qvv7

FUNCTIONS = ["2.5", "Van_Genuchten(A=10,N=2,SatWC=0.4,ResWC=0.1)",
             "Fredlund_Xing(A=60,N=1.8,M=0.9,SatWC=0.42)"]
N, REPEATS, ROUNDS = 1_000_000, 5, 7


def best(f):
    return min(f() for _ in range(ROUNDS))


def from_python(fn, x):
    start = time.perf_counter()
    for _ in range(REPEATS):
        fn(x)
    return (time.perf_counter() - start) / REPEATS


x = -np.logspace(-2, 5, N)
print(f"{'function':<50} {'C++ loop':>10} {'from Python':>12} {'ratio':>6}")
for text in FUNCTIONS:
    fn = qvv7.Function(text)
    cpp = best(lambda: qvv7._time_cpp_loop(fn, x, REPEATS))
    py = best(lambda: from_python(fn, x))
    print(f"{text:<50} {cpp * 1e3:8.2f}ms {py * 1e3:10.2f}ms {py / cpp:6.3f}")
