#pragma once
// What the parts of the Python module share: the open project, the mapping
// of failures to Python exceptions, and the registration of each part.
#include <pybind11/pybind11.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "OC/IOC.h"
#include "QVI/gtl/status.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"

namespace qvv7py {
namespace py = pybind11;

// A failed status on its way to Python, where it is raised as qvv7.Error
// with the status's message.
struct StatusError : std::runtime_error {
  using std::runtime_error::runtime_error;
};
// Throws StatusError when `s` failed; a warning is passed to Python's
// warnings module.
void Check(const gtl::status& s);
void Warn(const gtl::status& warning);

// An open project: the document and the package's other entries (result
// tables), kept so that a save writes them back unchanged.
struct Project {
  v7::QVDocumentHandle doc;
  v7::files::PackageEntries entries;
  std::wstring file;  // where it was opened from or last saved to
};
using ProjectPtr = std::shared_ptr<Project>;

// Makes a project's document the current one while it lives: functions
// that name other functions by number look them up there.
class CurrentDocument {
 public:
  explicit CurrentDocument(const v7::QVDocumentHandle& doc);
  ~CurrentDocument();
  CurrentDocument(const CurrentDocument&) = delete;
  CurrentDocument& operator=(const CurrentDocument&) = delete;

 private:
  v7::QVDocumentHandle previous_;
};

// A record (or a nested group of members) of a project, by its path.
struct RecordView {
  ProjectPtr project;
  std::wstring path;
};
// A collection of a project, by its path.
struct TableView {
  ProjectPtr project;
  std::wstring path;
};

// Resolves `path` in the project, or raises qvv7.Error naming it.
oc::IOC Resolve(const Project& project, const std::wstring& path);
// The Python value of a node: bool, int, float (None for the no-value
// marker), str (enumerations by name), a Record, a Table, or a list for an
// array of values.
py::object ValueOf(const ProjectPtr& project, const oc::IOC& node, const std::wstring& path);
// The text a Python value is set from, as `qvdoc set` would be given it.
std::wstring TextOf(const py::handle& value);

// Sets the value at `path` as Document.set does (the checks and messages of
// `qvdoc set`). An edit of a record of a table that takes part in undo
// (materials, boundary conditions, ...) is recorded as a change of that
// record, so that Document.undo takes it back.
void SetInProject(Project& project, const std::wstring& path, const py::handle& value);

void BindDocument(py::module_& m);
void BindUndo(py::module_& m);
void BindTables(py::module_& m);
void BindFunctions(py::module_& m);
void BindResults(py::module_& m);

}  // namespace qvv7py
