#!/usr/bin/python3
"""A parameter study with the qvv7 module.

Builds a small seepage project (a silt with a van Genuchten water-content
function and one steady-state analysis), sweeps the silt's saturated water
content over ten values, saves one package per value, and plots the ten
water-content curves when matplotlib is installed.

    PYTHONPATH=build/release/python /usr/bin/python3 examples/python/parameter_sweep.py OUT_DIR
"""
import pathlib
import sys

import numpy as np
import qvv7


def build_project():
    doc = qvv7.Document()
    doc.set("FileInfo.Title", "Silt parameter study")
    wc = doc.table("SFns").add(strName_="Silt water content",
                               fn_="Van_Genuchten(A=20,N=1.6,SatWC=0.4,ResWC=0.05)")
    silt = doc.materials.add(sDescription="Silt", HydroModel="SatUnsat")
    silt.set("Hydraulic.nVolWCFnNum", wc.id)
    silt.set("Hydraulic.dHKSat", 1e-7)
    doc.analyses.add(name="Steady seepage", kind="HYDRO", method="SteadyState")
    return doc, silt, wc


def main(out_dir):
    out = pathlib.Path(out_dir)
    out.mkdir(parents=True, exist_ok=True)
    doc, silt, wc = build_project()
    suction = np.logspace(-1, 4, 101)
    curves = {}
    for sat in np.linspace(0.30, 0.48, 10):
        sat = round(float(sat), 3)
        silt.set("Hydraulic.dSatVolWC", sat)
        # The function follows the material's saturated water content.
        wc.set("fn_", f"Van_Genuchten(A=20,N=1.6,SatWC={sat},ResWC=0.05)")
        path = out / f"silt_sat{sat:.3f}.qvz"
        doc.save(str(path))
        # Read back what was saved: the curve comes from the package.
        curves[sat] = qvv7.open(str(path)).evaluate(wc.path, -suction)
        print(f"{path.name}: water content at 100 kPa suction = {curves[sat][60]:.4f}")
    try:
        import matplotlib
        matplotlib.use("Agg")
        import matplotlib.pyplot as plt
    except ImportError:
        print("matplotlib is not installed: no plot")
        return
    fig, ax = plt.subplots()
    for sat, theta in curves.items():
        ax.semilogx(suction, theta, label=f"SatWC = {sat:.2f}")
    ax.set_xlabel("Suction (kPa)")
    ax.set_ylabel("Volumetric water content")
    ax.legend(fontsize="small")
    fig.savefig(out / "water_content.png", dpi=120)
    print(f"wrote {out / 'water_content.png'}")


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "sweep")
