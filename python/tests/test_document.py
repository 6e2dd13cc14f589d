import shutil
import subprocess
import zipfile

import pytest
import qvv7

# (path, value as Python gives it, the same as qvdoc's text)
EDITS = [
    ("analyses[1].Name", "Long-term seepage", "Long-term seepage"),
    ("analyses[3].fTolerance_", 0.005, "0.005"),
    ("analyses[3].nNumSlices_", 45, "45"),
    ("analyses[3].bAllowPassiveMode_", True, "true"),
    ("analyses[3].SlipDir_", "RightToLeft", "RightToLeft"),
    ("hMatlMem[1].sDescription", "Core (revised)", "Core (revised)"),
]


@pytest.mark.parametrize("path,value,text", EDITS)
@pytest.mark.parametrize("suffix", [".qvz", ".xml"])
def test_round_trip_matches_qvdoc_set(qvdoc, project, tmp_path, path, value, text, suffix):
    by_tool, by_python = tmp_path / ("tool" + suffix), tmp_path / ("python" + suffix)
    qvv7.open(str(project)).save(str(by_tool))
    shutil.copyfile(by_tool, by_python)
    subprocess.run([qvdoc, "set", str(by_tool), path, text], check=True, capture_output=True)
    doc = qvv7.open(str(by_python))
    doc.set(path, value)
    doc.save(str(by_python))
    if suffix == ".xml":
        assert by_python.read_bytes() == by_tool.read_bytes()
    else:
        # A package stamps each entry with the time of the save; everything
        # else, every entry's bytes included, is the same.
        with zipfile.ZipFile(by_python) as a, zipfile.ZipFile(by_tool) as b:
            assert [(i.filename, i.compress_type, i.CRC) for i in a.infolist()] == \
                [(i.filename, i.compress_type, i.CRC) for i in b.infolist()]
            assert all(a.read(n) == b.read(n) for n in a.namelist())
    assert qvv7.open(str(by_python)).get(path) == value


# (path, value, words the message must hold)
REFUSED = [
    ("analyses[9].Name", "x", "There is no record 9 in analyses[9].Name: analyses holds 3 records, IDs 1, 2 and 3."),
    ("analyses[1].NoSuchMember", "x", "NoSuchMember"),
    ("analyses[1].fTolerance_", 5.0, "outside the bounds [0, 1]"),
    ("analyses[1].SlipDir_", "Upwards", "Upwards"),
    ("analyses[1].nNumSlices_", "many", "many"),
    ("analyses[1]", "x", "not one value"),
    ("analyses[1].Name", None, "None"),
    ("analyses[1].fTolerance_", float("nan"), "finite"),
]


@pytest.mark.parametrize("path,value,words", REFUSED)
def test_refused_edits_raise_and_change_nothing(project, path, value, words):
    doc = qvv7.open(str(project))
    before = doc.get("analyses[1]").members()
    with pytest.raises(qvv7.Error, match=words.replace("[", r"\[").replace("]", r"\]")):
        doc.set(path, value)
    assert doc.get("analyses[1]").members() == before


@pytest.mark.parametrize("name,content,words", [
    ("garbage.qvz", b"PK\x03\x04 this is no zip", "garbage.qvz"),
    ("text.xml", b"<not closed", "text.xml"),
    ("notes.txt", b"hello", "neither a project package"),
    ("missing.qvz", None, "missing.qvz"),
])
def test_a_file_that_is_not_a_document_raises(tmp_path, name, content, words):
    path = tmp_path / name
    if content is not None:
        path.write_bytes(content)
    with pytest.raises(qvv7.Error, match=words):
        qvv7.open(str(path))


def test_failed_save_leaves_old_file(project, tmp_path):
    doc = qvv7.open(str(project))
    with pytest.raises(qvv7.Error):
        doc.save(str(tmp_path / "no-such-folder" / "x.qvz"))
    with pytest.raises(qvv7.Error):
        doc.save(str(tmp_path / "x.txt"))


def test_tables_read_as_records(qvdoc, project):
    doc = qvv7.open(str(project))
    info = subprocess.run([qvdoc, "info", str(project)], check=True, capture_output=True, text=True).stdout
    for a in doc.analyses:
        assert f"[{a.id}] {a.name} ({a.kind}, {a.method})" in info
    assert [a.id for a in doc.analyses] == doc.analyses.ids() == [1, 2, 3]
    assert doc.collections()["hMatlMem"] == len(doc.materials) == 3
    assert doc.table("Materials")[2].path == "Materials[2]"
    assert doc.analyses[1].get("DynamicControl_").path == "analyses[1].DynamicControl_"
    with pytest.raises(AttributeError):
        doc.analyses[1].NoSuchMember


def test_add_and_delete_records_survive_a_save(project, tmp_path):
    doc = qvv7.open(str(project))
    new = doc.analyses.add(name="Rapid drawdown", kind="STAB", fTolerance_=0.002)
    assert (new.id, new.name, new.fTolerance_) == (4, "Rapid drawdown", 0.002)
    fn = doc.table("HKFns").add(strName_="Constant K", fn_="1e-7")
    assert doc.evaluate(fn.path, 3.0) == 1e-7
    del doc.analyses[2]
    with pytest.raises(qvv7.Error, match="IDs 1, 3 and 4"):
        doc.analyses.delete(2)
    with pytest.raises(qvv7.Error, match="outside the bounds"):
        doc.analyses.add(kind="HYDRO", fTolerance_=7)
    with pytest.raises(qvv7.Error, match="cannot be added"):
        doc.table("resultSets").add()
    doc.save(str(tmp_path / "edited.qvz"))
    again = qvv7.open(str(tmp_path / "edited.qvz"))
    assert again.analyses.ids() == [1, 3, 4]
    scalars = lambda r: {k: v for k, v in r.members().items() if not isinstance(v, (qvv7.Record, qvv7.Table))}
    assert scalars(again.analyses[4]) == scalars(new)
