"""The type stub names what the module offers, and nothing it does not."""
import ast
import pathlib

import qvv7

STUB = ast.parse((pathlib.Path(__file__).parent.parent / "qvv7.pyi").read_text())


def public(names):
    return {n for n in names if not n.startswith("_") or n in ("__getitem__", "__setitem__", "__delitem__",
                                                               "__len__", "__iter__", "__call__", "__getattr__",
                                                               "__enter__", "__exit__")}


def test_stub_matches_module():
    top = {n.name for n in STUB.body if isinstance(n, (ast.ClassDef, ast.FunctionDef))}
    assert top == public(n for n in dir(qvv7) if not n.startswith("__"))
    for cls in (n for n in STUB.body if isinstance(n, ast.ClassDef) and n.name != "Error"):
        stubbed = {f.name for f in cls.body if isinstance(f, ast.FunctionDef)} - {"__init__"}
        offered = public(n for n in vars(getattr(qvv7, cls.name)) if n != "__init__")
        assert stubbed == offered - {"__eq__", "__repr__", "__hash__"}, cls.name
        assert getattr(qvv7, cls.name).__doc__


def test_help_reads_well():
    assert "qvv7.open(path)" in qvv7.__doc__
    for f in (qvv7.open, qvv7.evaluate, qvv7.Document.get, qvv7.Document.set, qvv7.Document.result_table):
        assert len(f.__doc__.splitlines()[-1]) > 20
