// qvv7.Document: open, save, get and set by path.
#include <pybind11/stl.h>

#include <cmath>

#include "OC/Path.h"
#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentEdit.h"
#include "V7Doc/files/DocumentPaths.h"
#include "V7Doc/files/DocumentSummary.h"
#include "python/src/Bindings.h"

namespace qvv7py {

void Check(const gtl::status& s) {
  if (s.failed()) throw StatusError(s.message_utf8());
  if (s.is_warning()) Warn(s);
}

void Warn(const gtl::status& warning) {
  if (PyErr_WarnEx(PyExc_UserWarning, warning.message_utf8().c_str(), 1) != 0) throw py::error_already_set();
}

CurrentDocument::CurrentDocument(const v7::QVDocumentHandle& doc) : previous_(v7::QVDocumentGetCurrentHandle()) {
  v7::QVDocumentSetCurrentHandle(doc);
}
CurrentDocument::~CurrentDocument() { v7::QVDocumentSetCurrentHandle(previous_); }

oc::IOC Resolve(const Project& project, const std::wstring& path) {
  oc::IOC node;
  Check(v7::doc::FindInDocument(*project.doc, path, node));
  return node;
}

py::object ValueOf(const ProjectPtr& project, const oc::IOC& node, const std::wstring& path) {
  using oc::ValueType;
  switch (node.Type()) {
    case ValueType::Bool: {
      bool v = false;
      Check(node.Get(v));
      return py::bool_(v);
    }
    case ValueType::Int32:
    case ValueType::UInt32:
    case ValueType::Int64: {
      std::int64_t v = 0;
      Check(node.Get(v));
      return py::int_(v);
    }
    case ValueType::Double: {
      double v = 0;
      Check(node.Get(v));
      if (qvi::IsNoValue(v)) return py::none();
      return py::float_(v);
    }
    case ValueType::WString:
    case ValueType::Enum: {
      std::wstring v;
      Check(node.Get(v));
      return py::str(str::to_utf8(v));
    }
    case ValueType::Struct: return py::cast(RecordView{project, path});
    case ValueType::Array:
    case ValueType::Table:
      if (node.Template() && node.Template()->HoldsRecords()) return py::cast(TableView{project, path});
      {
        py::list values;
        std::size_t i = 0;
        for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c), ++i)
          values.append(ValueOf(project, c, path + L"[" + std::to_wstring(i) + L"]"));
        return std::move(values);
      }
  }
  return py::none();
}

std::wstring TextOf(const py::handle& value) {
  // bool first: it is also an int.
  if (py::isinstance<py::bool_>(value)) return value.cast<bool>() ? L"true" : L"false";
  if (value.is_none()) throw StatusError("None is not a value to set; give a number, text or bool");
  if (py::isinstance<py::float_>(value)) {
    // repr is the shortest text that reads back to the same double.
    if (!std::isfinite(value.cast<double>())) throw StatusError("only finite numbers can be set");
    return str::to_wstring(py::repr(value).cast<std::string>());
  }
  if (py::isinstance<py::int_>(value) || py::isinstance<py::str>(value))
    return str::to_wstring(py::str(value).cast<std::string>());
  throw StatusError("a value to set must be a bool, int, float or str, not " +
                    py::str(py::type::of(value).attr("__name__")).cast<std::string>());
}

namespace {

ProjectPtr NewProject() {
  auto p = std::make_shared<Project>();
  p->doc = v7::QVDocumentHandle(new v7::QVDocument());
  p->doc->DataInit();
  return p;
}

ProjectPtr Open(const std::string& path) {
  auto p = std::make_shared<Project>();
  p->doc = v7::QVDocumentHandle(new v7::QVDocument());
  v7::files::LoadReport report;
  const std::wstring file = str::to_wstring(path);
  Check(v7::files::LoadDocument(file, *p->doc, &p->entries, &report));
  for (const auto& w : report.warnings) Warn(w);
  p->file = file;
  return p;
}

void Save(Project& p, const std::string& path) {
  const std::wstring file = str::to_wstring(path);
  // A bare document has no room for result tables; they stay in memory.
  static const v7::files::PackageEntries none;
  Check(v7::files::SaveDocument(*p.doc, file, v7::files::IsPackagePath(file) ? p.entries : none));
  p.file = file;
}

void Set(Project& p, const std::string& path, const py::handle& value) {
  SetInProject(p, str::to_wstring(path), value);
}

py::dict Collections(const Project& p) {
  py::dict out;
  for (const auto& c : v7::files::SummarizeCollections(*p.doc))
    out[py::str(str::to_utf8(c.member))] = c.count;
  return out;
}

}  // namespace

void BindDocument(py::module_& m) {
  py::class_<Project, ProjectPtr>(m, "Document", R"(One project in memory.

``Document()`` is a new empty project; ``qvv7.open(path)`` reads one from a
".qvz" package or a bare ".xml" document. Paths name values as ``qvdoc get``
does: member names, persisted tags or aliases, with ``[ID]`` for a record of a
table ("analyses[1].Name", "Materials[2].Hydraulic.KSat").)")
      .def(py::init(&NewProject))
      .def("save", &Save, py::arg("path"),
           "Save to `path` (\".qvz\" keeps the result tables read with the project, \".xml\" is the bare "
           "document). The save is atomic: on failure the old file is untouched and Error is raised.")
      .def(
          "get", [](const ProjectPtr& p, const std::string& path) {
            const std::wstring w = str::to_wstring(path);
            return ValueOf(p, Resolve(*p, w), w);
          },
          py::arg("path"),
          "The value at `path`: bool, int, float (None where no value is set), str (enumerations by "
          "name), a Record, a Table, or a list. Raises Error when the path names nothing.")
      .def("set", &Set, py::arg("path"), py::arg("value"),
           "Set the value at `path`, checked as `qvdoc set` checks it (type, enumeration name, bounds, "
           "read-only). Raises Error, leaving the value as it was, when refused.")
      .def("collections", &Collections,
           "Every collection of the project by member name, with its number of live records.")
      .def_property_readonly(
          "file", [](const Project& p) { return str::to_utf8(p.file); },
          "Where the project was opened from or last saved to (empty for a new one).")
      .def("__repr__", [](const Project& p) {
        return "<qvv7.Document " + (p.file.empty() ? std::string("(new)") : str::to_utf8(p.file)) + ">";
      });
  m.def("open", &Open, py::arg("path"),
        "Read a project from a \".qvz\" package or a \".xml\" document. Raises Error naming the file (and "
        "for bad content the line and path) when it is not a readable document; load warnings go to "
        "Python's warnings module.");
}

}  // namespace qvv7py
