// Document.undo, Document.redo and `with doc.transaction("label"):`, over the
// document's undo history. What the history records is the library's
// choice: the tables that take part in undo (materials, boundary
// conditions, climate data, ...) record adds, deletes and changes; edits of
// other tables and settings are not recorded.
#include "QVI/str/Convert.h"
#include "python/src/Bindings.h"

namespace qvv7py {
namespace {

// A transaction as a context manager: the edits inside are one undo step
// named `label`; an exception leaving the block takes them back.
struct Transaction {
  ProjectPtr project;
  std::wstring label;
  bool open = false;
};

Transaction& Enter(Transaction& t) {
  if (t.open) throw StatusError("this transaction is already open");
  t.project->doc->BeginTransaction();
  t.open = true;
  return t;
}

bool Exit(Transaction& t, const py::object& type, const py::object&, const py::object&) {
  if (!t.open) return false;
  t.open = false;
  if (type.is_none())
    t.project->doc->CommitTransaction(t.label);
  else
    t.project->doc->AbortTransaction();
  return false;  // an exception goes on
}

}  // namespace

void BindUndo(py::module_& m) {
  py::class_<Transaction>(m, "Transaction",
                          "The edits inside ``with doc.transaction(label):`` form one undo step; an exception "
                          "leaving the block takes them back.")
      .def("__enter__", &Enter, py::return_value_policy::reference)
      .def("__exit__", &Exit);
  auto cls = py::getattr(m, "Document").cast<py::class_<Project, ProjectPtr>>();
  cls.def(
         "undo", [](Project& p) { return p.doc->Undo(); },
         "Take back the last undo step; False when there is none or a transaction is open. Recorded: adds, "
         "deletes and changes of the tables that take part in undo (materials, boundary conditions, climate "
         "data, ...).")
      .def(
          "redo", [](Project& p) { return p.doc->Redo(); },
          "Do again the step last undone; False when there is none or a transaction is open.")
      .def_property_readonly(
          "can_undo", [](const Project& p) { return p.doc->CanUndo(); }, "True when undo() has a step to take back.")
      .def_property_readonly(
          "can_redo", [](const Project& p) { return p.doc->CanRedo(); }, "True when redo() has a step to do again.")
      .def(
          "transaction",
          [](const ProjectPtr& p, const std::string& label) { return Transaction{p, str::to_wstring(label)}; },
          py::arg("label"), "A context manager grouping the edits inside it into one undo step named `label`.");
}

}  // namespace qvv7py
