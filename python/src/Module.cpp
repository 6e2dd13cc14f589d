// The Python module qvv7: open, edit and save projects, evaluate functions
// over numpy arrays and read result tables into numpy columns.
#include <pybind11/pybind11.h>

#include "python/src/Bindings.h"

PYBIND11_MODULE(qvv7, m) {
  m.doc() = R"(Scripting access to QVV7 geotechnical project documents.

Open a project with ``qvv7.open(path)`` (a ".qvz" package or a bare ".xml"
document) or start an empty one with ``qvv7.Document()``. Read and write values
by path with ``Document.get`` and ``Document.set`` (the same paths and checks as
``qvdoc get`` and ``qvdoc set``), walk the record tables (``doc.analyses``,
``doc.materials``, ``doc.table("HKFns")``) and save with ``Document.save``.

``qvv7.evaluate(text, x)`` evaluates a function written as text over a numpy
array; ``Document.evaluate("HKFns[1]", x)`` evaluates a function of the
project. ``Document.result_table(analysis, table)`` reads a result table into
a dict of numpy columns.

``Document.undo()`` and ``Document.redo()`` step through the document's undo
history, and ``with doc.transaction("label"):`` makes the edits inside one step
(an exception leaving the block takes them back). The history records the
tables that take part in undo: materials, boundary conditions, climate data
and the other tables the library marks so.

Every failure raises ``qvv7.Error`` (a ValueError) with the library's message.
)";
  namespace py = pybind11;
  auto error = py::register_exception<qvv7py::StatusError>(m, "Error", PyExc_ValueError);
  error.attr("__doc__") = "A refused path, value, file or function text; the message says what and where.";
  qvv7py::BindDocument(m);
  qvv7py::BindTables(m);
  qvv7py::BindFunctions(m);
  qvv7py::BindResults(m);
  qvv7py::BindUndo(m);
}
