#!/usr/bin/env python3
"""Runs the benchmarks that have a target ratio and prints one table of the
ratios with their aims. Each ratio is taken between two benchmarks of the
same program run (median CPU time of 3 repetitions), so a busy machine slows
both sides alike.

Usage: ratios.py BENCH_DIR
"""
import json
import subprocess
import sys

# (program, label, numerator, denominator, aim sign, aim). A ratio with
# sign "<=" is a cost (lower is better); ">=" is a speed-up.
RATIOS = [
    ("bench_document", "document load / pugixml parse", "BM_DocumentLoad", "BM_PugixmlParse", "<=", 1.5),
    ("bench_document", "document save / pugixml save", "BM_DocumentSave", "BM_PugixmlSave", "<=", 1.5),
    ("bench_result_table", "CSV table, 8 columns / read and split lines",
     "BM_Reader_AllEightColumns/200000", "BM_Baseline_ReadAndSplitLines/200000", "<=", 2.0),
    ("bench_functions", "IFn linear / hand loop", "BM_IFnLinear", "BM_HandLinear", "<=", 1.3),
    ("bench_functions", "IFn linear, array / hand loop", "BM_IFnLinearArray", "BM_HandLinear", "<=", 1.3),
    ("bench_functions", "IFn spline / hand loop", "BM_IFnSpline", "BM_HandSpline", "<=", 1.3),
    ("bench_functions", "IFn spline, array / hand loop", "BM_IFnSplineArray", "BM_HandSpline", "<=", 1.3),
    ("bench_soilwater", "Fredlund-Xing IFn / inline formula", "BM_FredXingIFn", "BM_FredXingInline", "<=", 1.1),
    ("bench_soilwater", "Fredlund-Xing IFn, array / inline", "BM_FredXingIFnArray", "BM_FredXingInline", "<=", 1.1),
    ("bench_inversion", "Newton / closed-form inversion (speed-up)", "BM_InversionNewton",
     "BM_InversionClosedForm", ">=", 10.0),
    ("bench_file_read", "whole-file read / plain read(2)", "BM_ReadWholeFile", "BM_PlainReadFloor", "<=", 1.5),
    ("bench_file_read", "stream-iterator copy / whole-file read (speed-up)", "BM_StreamIteratorCopy",
     "BM_ReadWholeFile", ">=", 2.0),
]

# (program, label, benchmark, counter) read as peak bytes per XML byte.
MEMORY = [
    ("bench_document", "load peak memory / XML size", "BM_DocumentLoad", 2.0),
]


def run(bench_dir, program, names):
    pattern = "^(" + "|".join(sorted(names)) + ")$"
    out = subprocess.run(
        [f"{bench_dir}/{program}", f"--benchmark_filter={pattern}", "--benchmark_repetitions=3",
         "--benchmark_report_aggregates_only=true", "--benchmark_format=json"],
        check=True, capture_output=True, text=True).stdout
    medians = {}
    for b in json.loads(out)["benchmarks"]:
        if b.get("aggregate_name") == "median":
            medians[b["run_name"]] = b
    return medians


def main():
    bench_dir = sys.argv[1] if len(sys.argv) > 1 else "build/release/bench"
    wanted = {}
    for program, _, num, den, _, _ in RATIOS:
        wanted.setdefault(program, set()).update({num, den})
    for program, _, name, _ in MEMORY:
        wanted.setdefault(program, set()).add(name)
    results = {p: run(bench_dir, p, names) for p, names in wanted.items()}

    rows = []
    for program, label, num, den, sign, aim in RATIOS:
        r = results[program]
        if num not in r or den not in r:
            rows.append((label, "missing", f"{sign} {aim:g}x", "?"))
            continue
        ratio = r[num]["cpu_time"] / r[den]["cpu_time"]
        ok = ratio <= aim if sign == "<=" else ratio >= aim
        rows.append((label, f"{ratio:.2f}x", f"{sign} {aim:g}x", "yes" if ok else "NO"))
    for program, label, name, aim in MEMORY:
        b = results[program].get(name, {})
        peak, size = b.get("peak_delta_KiB", -1), b.get("xml_bytes", 0)
        if peak < 0 or size <= 0:
            rows.append((label, "unmeasured", f"<= {aim:g}x", "?"))
            continue
        ratio = peak * 1024 / size
        rows.append((label, f"{ratio:.2f}x", f"<= {aim:g}x", "yes" if ratio <= aim else "NO"))

    widths = [max(len(h), *(len(row[i]) for row in rows)) for i, h in enumerate(("figure", "ratio", "aim", "met"))]
    line = lambda cells: "  ".join(c.ljust(w) for c, w in zip(cells, widths))
    print(line(("figure", "ratio", "aim", "met")))
    print(line(tuple("-" * w for w in widths)))
    for row in rows:
        print(line(row))


if __name__ == "__main__":
    main()
