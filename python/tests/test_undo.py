import pytest
import qvv7

KSAT = "hMatlMem[1].Hydraulic.dHKSat"


def state(doc):
    return (doc.get(KSAT), doc.materials.ids(), doc.boundary_conditions[1].name)


def test_undo_redo_and_transactions(project):
    doc = qvv7.open(str(project))
    start = state(doc)
    assert not doc.can_undo and not doc.undo()
    doc.set(KSAT, 3e-9)                                   # one step
    with doc.transaction("Gravel and a renamed head"):   # one step of two edits
        doc.materials.add(sDescription="Gravel")
        doc.boundary_conditions[1]["name"] = "Upstream head"
    edited = state(doc)
    assert edited == (3e-9, [1, 2, 3, 4], "Upstream head")
    assert doc.undo() and state(doc) == (3e-9, [1, 2, 3], start[2])
    assert doc.undo() and state(doc) == start and not doc.can_undo
    assert doc.redo() and doc.redo() and state(doc) == edited and not doc.can_redo


def test_a_failing_transaction_is_taken_back(project):
    doc = qvv7.open(str(project))
    start = state(doc)
    with pytest.raises(qvv7.Error, match="abc"):
        with doc.transaction("half done"):
            doc.set(KSAT, 5e-9)
            del doc.materials[2]
            doc.set(KSAT, "abc")
    assert state(doc) == start and not doc.can_undo
