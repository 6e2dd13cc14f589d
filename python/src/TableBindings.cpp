// qvv7.Table and qvv7.Record: the record tables of a project as Python
// objects whose members are read and written through their paths, so that
// every edit is checked as Document.set checks it.
#include <pybind11/stl.h>

#include <functional>

#include "OC/Path.h"
#include "OC/Schema.h"
#include "QVI/str/Convert.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/files/DocumentEdit.h"
#include "V7Doc/files/DocumentPaths.h"
#include "V7Doc/files/DocumentSummary.h"
#include "python/src/Bindings.h"

namespace qvv7py {
namespace {

using Members = std::vector<std::pair<std::wstring, std::wstring>>;

std::wstring Join(const std::wstring& path, const std::string& member) {
  return path + L"." + str::to_wstring(member);
}
std::wstring ElementPath(const std::wstring& path, std::uint64_t id) {
  return path + L"[" + std::to_wstring(id) + L"]";
}

// A default record of the table's type with `members` set, each checked
// as a set by path checks it, then added to `table`. A record that the
// table would take for a deleted one (no kind, no name, no coordinates)
// is refused, saying which members make it live.
template <class Table>
std::uint64_t AddTo(Table& table, const oc::RecordType& type, const Members& members, const char* needs) {
  typename Table::value_type rec{};
  oc::IOC node = oc::IOC::Record(type, &rec);
  node.SetWhere(L"the new record");
  Check(node.Clear());  // the declared defaults, as a read of a file starts from
  for (const auto& [name, text] : members) {
    oc::IOC m = node.GetSubOC(name);
    if (!m.IsValid()) throw StatusError("the new record has no member \"" + str::to_utf8(name) + "\"");
    if (!oc::IsScalar(m.Type())) throw StatusError("member \"" + str::to_utf8(name) + "\" is not one value");
    Check(m.Set(text));
  }
  if constexpr (!Table::id_policy::kStoresID)
    if (Table::id_policy::IsMissing(rec))
      throw StatusError(std::string("the new record would read as deleted: give ") + needs);
  return table.Add(std::move(rec)).ID();
}

// The typed table behind a collection (by its container GID), and what
// a new record of it needs; tables without one cannot be added to here.
struct Editor {
  std::function<std::uint64_t(const oc::RecordType&, const Members&)> add;
  std::function<bool(std::uint64_t)> remove;
};

template <class Table>
Editor EditorOf(Table& table, const char* needs) {
  return {[&table, needs](const oc::RecordType& t, const Members& m) { return AddTo(table, t, m, needs); },
          [&table](std::uint64_t id) {
            if (id == 0 || id > table.Size() || !table.IsValidID(static_cast<v7::GID>(id))) return false;
            table.Delete({static_cast<v7::GID>(id)});
            return true;
          }};
}

// The typed table a top-level collection of the document is stored in,
// found by its storage (function lists and lines name no container in
// their declaration).
std::optional<Editor> EditorFor(v7::QVDocument& doc, const oc::IOC& collection) {
  const oc::Member* m = collection.Template();
  if (!m || m->owner != &oc::TypeOf<v7::QVDocument>() || !m->access) return std::nullopt;
  const void* field = m->access->Field(&doc);
  if (field == &doc.Analyses()) return EditorOf(doc.Analyses(), "kind (e.g. kind=\"HYDRO\")");
  if (field == &doc.Materials()) return EditorOf(doc.Materials(), "any member");
  if (field == &doc.BCs()) return EditorOf(doc.BCs(), "a name");
  if (field == &doc.Geometry().Points()) return EditorOf(doc.Geometry().Points(), "X and Y (dX_, dY_)");
  if (field == &doc.Geometry().Lines())
    return EditorOf(doc.Geometry().Lines(), "the point IDs (nPointID1_, nPointID2_)");
  if (field == &doc.Geometry().Regions()) return EditorOf(doc.Geometry().Regions(), "its points");
  for (v7::GID list = v7::container::FirstFunctionList; list <= v7::container::LastFunctionList; ++list)
    if (v7::Func2DTable* fns = doc.FunctionList(list); fns && field == fns)
      return EditorOf(*fns, "a name (strName_)");
  return std::nullopt;
}

// Runs `edit`, which writes record `rec` of `table` in place, as a change
// the table records: the record is put back as it was and the edited copy
// handed to Change. Nothing when `rec` is not in `table`.
template <class Table>
bool RecordedEdit(Table& table, const void* rec, const std::function<void()>& edit) {
  using T = typename Table::value_type;
  auto it = table.Find(static_cast<const T*>(rec));
  if (it == table.end()) return false;
  const v7::GID id = it.ID();
  T before = table.At(id);
  edit();
  T after = table.At(id);
  table.At(id) = std::move(before);
  table.Change(id, after);
  return true;
}

// The record of a top-level table that `path` leads into (its first
// indexed step), or nullptr.
const void* RecordOf(v7::QVDocument& doc, const std::wstring& path) {
  std::wstring plain;
  if (v7::doc::NormalizeExpression(path, std::nullopt, plain).failed()) return nullptr;
  const auto close = plain.find(L']');
  oc::IOC rec;
  if (close == std::wstring::npos || v7::doc::FindInDocument(doc, plain.substr(0, close + 1), rec).failed())
    return nullptr;
  return rec.Object();
}

// The collection node of a table view, checked to be one.
oc::IOC Collection(const TableView& t) {
  oc::IOC node = Resolve(*t.project, t.path);
  if (!oc::IsArray(node)) throw StatusError(str::to_utf8(t.path) + " is not a collection");
  return node;
}

Editor EditorOrFail(const TableView& t, const oc::IOC& node) {
  auto editor = EditorFor(*t.project->doc, node);
  if (!editor)
    throw StatusError("records cannot be added to or deleted from " + str::to_utf8(t.path) +
                      " here (analyses, materials, boundary conditions, points, lines, regions and "
                      "function lists can)");
  return *editor;
}

py::list Records(const TableView& t) {
  const oc::IOC node = Collection(t);
  py::list out;
  for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c))
    out.append(RecordView{t.project, ElementPath(t.path, v7::files::ElementIndex(c))});
  return out;
}

RecordView At(const TableView& t, std::uint64_t id) {
  const std::wstring path = ElementPath(t.path, id);
  const oc::IOC node = Resolve(*t.project, path);  // the miss names the collection and its IDs
  if (node.Type() != oc::ValueType::Struct) throw StatusError(str::to_utf8(path) + " is not a record");
  return {t.project, path};
}

RecordView Add(const TableView& t, const py::kwargs& members) {
  const oc::IOC node = Collection(t);
  Editor editor = EditorOrFail(t, node);
  Members texts;
  for (const auto& [k, v] : members) texts.emplace_back(str::to_wstring(py::str(k).cast<std::string>()), TextOf(v));
  return {t.project, ElementPath(t.path, editor.add(node.Template()->record(), texts))};
}

void Delete(const TableView& t, std::uint64_t id) {
  const oc::IOC node = Collection(t);
  Editor editor = EditorOrFail(t, node);
  if (!editor.remove(id)) Resolve(*t.project, ElementPath(t.path, id));  // raises, naming the IDs there are
}

std::optional<std::uint64_t> IdOf(const RecordView& r) {
  if (r.path.empty() || r.path.back() != L']') return std::nullopt;
  return v7::files::ElementIndex(Resolve(*r.project, r.path));
}

py::object Member(const RecordView& r, const std::string& name) {
  const std::wstring path = Join(r.path, name);
  return ValueOf(r.project, Resolve(*r.project, path), path);
}

void SetMember(const RecordView& r, const std::string& name, const py::handle& value) {
  SetInProject(*r.project, Join(r.path, name), value);
}

py::dict MembersOf(const RecordView& r) {
  const oc::IOC node = Resolve(*r.project, r.path);
  py::dict out;
  for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c)) {
    const std::wstring name = c.Name();
    const std::wstring path = r.path + L"." + name;
    oc::IOC child;
    // Wrapper elements of the layout are reached by their tag; skip what a
    // path cannot name.
    if (v7::doc::FindInDocument(*r.project->doc, path, child).failed()) continue;
    out[py::str(str::to_utf8(name))] = ValueOf(r.project, child, path);
  }
  return out;
}

std::string Repr(const RecordView& r) {
  const std::wstring label = v7::files::RecordLabel(Resolve(*r.project, r.path));
  return "<qvv7.Record " + str::to_utf8(r.path) + (label.empty() ? "" : " \"" + str::to_utf8(label) + "\"") + ">";
}

TableView TableOf(const ProjectPtr& p, const std::string& name) {
  TableView t{p, str::to_wstring(name)};
  Collection(t);
  return t;
}

}  // namespace

void SetInProject(Project& project, const std::wstring& path, const py::handle& value) {
  const std::wstring text = TextOf(value);
  v7::QVDocument& doc = *project.doc;
  v7::files::SetReport report;
  gtl::status s;
  const auto set = [&] { s = v7::files::SetValueInDocument(doc, path, text, &report); };
  const void* rec = RecordOf(doc, path);
  // The tables that record their changes for undo.
  if (!rec || !(RecordedEdit(doc.Materials(), rec, set) || RecordedEdit(doc.BCs(), rec, set) ||
                RecordedEdit(doc.ClimateData(), rec, set)))
    set();
  Check(s);
  for (const auto& w : report.warnings) Warn(w);
}

void BindTables(py::module_& m) {
  py::class_<TableView>(m, "Table", R"(A collection of a project: a record table (records by ID, from 1,
with gaps where records were deleted) or an array.

``len(t)``, ``for r in t``, ``t[ID]``, ``t.ids()``; ``t.add(**members)`` adds a
record and ``t.delete(ID)`` (or ``del t[ID]``) deletes one (analyses, materials, boundary
conditions, points, lines, regions and function lists).)")
      .def_property_readonly("path", [](const TableView& t) { return str::to_utf8(t.path); })
      .def("__len__", [](const TableView& t) { return Collection(t).Length(); })
      .def("__iter__", [](const TableView& t) { return py::iter(Records(t)); })
      .def("__getitem__", &At, py::arg("id"), "The record with this ID (tables) or index (arrays).")
      .def(
          "ids",
          [](const TableView& t) {
            std::vector<std::uint64_t> ids;
            const oc::IOC node = Collection(t);
            for (oc::IOC c = node.begin(); c.IsValid(); c = node.GetNextSubOC(c))
              ids.push_back(v7::files::ElementIndex(c));
            return ids;
          },
          "The IDs of the live records, ascending.")
      .def("add", &Add,
           "Add a record with the given members (member names or persisted tags, values as for "
           "Document.set) and return it. Raises Error when a value is refused or the record would be empty.")
      .def("delete", &Delete, py::arg("id"),
           "Delete the record with this ID; the other records keep their IDs and references to it are "
           "cleared.")
      .def("__delitem__", &Delete)
      .def("__eq__", [](const TableView& a, const TableView& b) { return a.project == b.project && a.path == b.path; })
      .def("__repr__", [](const TableView& t) {
        return "<qvv7.Table " + str::to_utf8(t.path) + " (" + std::to_string(Collection(t).Length()) + ")>";
      });

  py::class_<RecordView>(m, "Record", R"(A record of a project, by its path ("analyses[2]").

Members read as attributes or items (``r.name``, ``r["Name"]``); ``r.set(member,
value)`` or ``r[member] = value`` writes one, checked as Document.set checks.)")
      .def_property_readonly("path", [](const RecordView& r) { return str::to_utf8(r.path); })
      .def_property_readonly("id", &IdOf, "The record's ID in its table (None for a nested record).")
      .def_property_readonly(
          "label", [](const RecordView& r) { return str::to_utf8(v7::files::RecordLabel(Resolve(*r.project, r.path))); },
          "The record's name, title or description (empty when it has none).")
      .def("get", &Member, py::arg("member"), "The value of a member (as Document.get gives it).")
      .def("set", &SetMember, py::arg("member"), py::arg("value"), "Set a member (as Document.set does).")
      .def("members", &MembersOf, "Every member by name with its value.")
      .def("__getitem__", &Member)
      .def("__setitem__", &SetMember)
      .def("__getattr__",
           [](const RecordView& r, const std::string& name) -> py::object {
             if (name.starts_with("__")) throw py::attribute_error(name);
             oc::IOC node;
             const std::wstring path = Join(r.path, name);
             if (v7::doc::FindInDocument(*r.project->doc, path, node).failed())
               throw py::attribute_error(str::to_utf8(r.path) + " has no member \"" + name + "\"");
             return ValueOf(r.project, node, path);
           })
      .def("__eq__", [](const RecordView& a, const RecordView& b) { return a.project == b.project && a.path == b.path; })
      .def("__repr__", &Repr);

  auto document = py::getattr(m, "Document");
  auto table = [](const char* name) {
    return [name](const ProjectPtr& p) { return TableOf(p, name); };
  };
  py::class_<Project, ProjectPtr> cls = document.cast<py::class_<Project, ProjectPtr>>();
  cls.def("table", &TableOf, py::arg("name"),
          "A collection by member name, persisted tag or alias (\"analyses\", \"Materials\", \"HKFns\").")
      .def_property_readonly("analyses", table("analyses"), "The analyses.")
      .def_property_readonly("materials", table("hMatlMem"), "The materials.")
      .def_property_readonly("boundary_conditions", table("boundaryConditions"), "The boundary conditions.")
      .def_property_readonly("points", table("points"), "The geometry's points.")
      .def_property_readonly("lines", table("lines"), "The geometry's lines.")
      .def_property_readonly("regions", table("regions"), "The geometry's regions.");
}

}  // namespace qvv7py
