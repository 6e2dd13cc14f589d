import csv
import io
import subprocess

import numpy as np
import pytest
import qvv7


def test_result_table_equals_qvdoc_results(qvdoc, project):
    doc = qvv7.open(str(project))
    [entry] = doc.result_tables()
    assert (entry["analysis"], entry["step"], entry["table"]) == (1, 1, "node")
    text = subprocess.run([qvdoc, "results", str(project), "--analysis", "1", "--table", "node"],
                          check=True, capture_output=True, text=True).stdout
    rows = list(csv.reader(io.StringIO(text)))
    table = doc.result_table(1, "node")
    assert list(table) == rows[0]
    for c, name in enumerate(rows[0]):
        np.testing.assert_array_equal(table[name], [float(r[c]) if r[c] else np.nan for r in rows[1:]])
    assert list(doc.result_table(1, "node", step=1, columns="Y,X")) == ["Y", "X"]


@pytest.mark.parametrize("args,words", [
    ((1, "gauss"), "no table"),
    ((7, "node"), "no result folder"),
    ((1, "node", 2), "step 2"),
    ((1, "node", None, "Y,Nonsense"), "Nonsense"),
])
def test_missing_tables_raise(project, args, words):
    with pytest.raises(qvv7.Error, match=words):
        qvv7.open(str(project)).result_table(*args)
