"""A demo project written by qvdoc once per test session."""
import os
import pathlib
import shutil
import subprocess

import pytest


@pytest.fixture(scope="session")
def qvdoc():
    return os.environ["QVV7_QVDOC"]


@pytest.fixture(scope="session")
def demo(qvdoc, tmp_path_factory):
    out = tmp_path_factory.mktemp("demo")
    subprocess.run([qvdoc, "demo", "--out", str(out)], check=True, capture_output=True)
    return out / "demo.qvz"


@pytest.fixture
def project(demo, tmp_path):
    """A fresh copy of the demo project."""
    copy = tmp_path / "project.qvz"
    shutil.copyfile(demo, copy)
    return copy
