"""qvdoc's output for scripts, read back and compared with the module's."""
import json
import subprocess

import numpy as np
import pytest
import qvv7


def run(qvdoc, *args, code=0):
    r = subprocess.run([qvdoc, *map(str, args)], capture_output=True, text=True)
    assert r.returncode == code, r.stderr
    return r.stdout + r.stderr


def test_json_output_agrees_with_the_module(qvdoc, project):
    doc = qvv7.open(str(project))
    info = json.loads(run(qvdoc, "info", project, "--json"))
    assert [(a["id"], a["name"], a["kind"]) for a in info["analyses"]] == \
        [(a.id, a.name, a.kind) for a in doc.analyses]
    assert {k: v["count"] for k, v in info["collections"].items()} == \
        {k: v for k, v in doc.collections().items() if v}
    got = json.loads(run(qvdoc, "get", project, "analyses[3].fTolerance_", "--json"))
    assert got == {"path": "analyses[3].fTolerance_", "value": doc.get("analyses[3].fTolerance_")}
    listed = json.loads(run(qvdoc, "get", project, "Materials", "--json"))["value"]
    assert listed == [{"id": m.id, "name": m.label} for m in doc.materials]
    table = json.loads(run(qvdoc, "results", project, "--analysis", 1, "--table", "node", "--json"))
    for name, column in doc.result_table(1, "node").items():
        np.testing.assert_array_equal(np.array(table["columns"][name], dtype=float), column)
    listing = json.loads(run(qvdoc, "results", project, "--json"))
    assert listing["tables"] == doc.result_tables()


def test_fn_at_and_json_give_every_digit(qvdoc):
    text = "Van_Genuchten(A=10,N=2,SatWC=0.4,ResWC=0.1)"
    x = np.array([3.0, 25.0, 400.0])
    expected = qvv7.evaluate(text, -x)
    for xi, yi in zip(x, expected):
        assert float(run(qvdoc, "fn", text, "--suction", "--at", xi)) == yi  # exact, not 6 digits
    out = json.loads(run(qvdoc, "fn", text, "--suction", "--from", 3, "--to", 400, "--points", 2, "--json"))
    assert out["x"] == [3, 400] and out["y"] == [expected[0], expected[2]]


def test_collections_list_records_and_misses_name_the_collection(qvdoc, project):
    out = run(qvdoc, "get", project, "analyses")
    assert out.splitlines() == ["analyses: 3 records", "  [1] Steady seepage", "  [2] Reservoir drawdown",
                                "  [3] Slope stability after drawdown"]
    assert "analyses holds 3 records, IDs 1, 2 and 3." in run(qvdoc, "get", project, "analyses[4].Name", code=1)
    assert "points_ holds 4 elements, indices 0 to 3" in run(qvdoc, "get", project, "HKFns[1].points_[9]", code=1)


@pytest.mark.parametrize("command", ["info", "get", "set", "convert", "results", "fn", "fn3d", "demo"])
def test_help_shows_an_example(qvdoc, command):
    assert f"Example:\n  qvdoc {command} " in run(qvdoc, *command.split(), "--help")
