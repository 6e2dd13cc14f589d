// Document.result_table and Document.result_tables: the result tables a
// package holds, read from the entries loaded with it into numpy columns.
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <limits>
#include <optional>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "V7Doc/results/ResultPackage.h"
#include "python/src/Bindings.h"

namespace qvv7py {
namespace {

std::vector<v7::result::ResultEntry> Entries(const Project& p) {
  std::vector<std::wstring> names;
  for (const auto& [name, bytes] : p.entries) names.push_back(name);
  return v7::result::ListResultEntries(names);
}

py::dict ResultTable(const Project& p, v7::GID analysis, const std::string& table, std::optional<int> step,
                     const std::optional<std::string>& columns) {
  if (step && *step < 0) throw StatusError("step must be 0 or above");
  v7::result::ResultEntry entry;
  Check(v7::result::FindResultEntry(Entries(p), analysis, str::to_wstring(table),
                                    step ? *step : v7::v7qvi::analysis::kStepNone, entry));
  const std::string& bytes = p.entries.at(entry.entry);
  std::vector<v7::DataParamType> params;
  if (columns)
    Check(v7::result::ParseColumnList(str::to_wstring(*columns), params));
  else
    Check(v7::result::ReadResultTableHeader(bytes, entry.entry, params));
  v7::result::ResultTable values;
  Check(v7::result::ReadResultTable(bytes, entry.entry, params, values));
  py::dict out;
  for (std::size_t c = 0; c < values.Columns(); ++c) {
    py::array_t<double> column(static_cast<py::ssize_t>(values.Rows()));
    double* dst = column.mutable_data();
    const double* src = values.Column(c);
    for (std::size_t r = 0; r < values.Rows(); ++r)
      dst[r] = qvi::IsNoValue(src[r]) ? std::numeric_limits<double>::quiet_NaN() : src[r];
    out[py::str(str::to_utf8(meta::ToName(values.Params()[c])))] = std::move(column);
  }
  return out;
}

py::list ResultTables(const Project& p) {
  py::list out;
  for (const auto& e : Entries(p)) {
    py::dict d;
    d["analysis"] = e.analysis;
    d["step"] = e.step == v7::v7qvi::analysis::kStepNone ? py::object(py::none()) : py::int_(e.step);
    d["table"] = str::to_utf8(e.table);
    d["entry"] = str::to_utf8(e.entry);
    out.append(d);
  }
  return out;
}

}  // namespace

void BindResults(py::module_& m) {
  auto cls = py::getattr(m, "Document").cast<py::class_<Project, ProjectPtr>>();
  cls.def("result_table", &ResultTable, py::arg("analysis"), py::arg("table"), py::arg("step") = py::none(),
          py::arg("columns") = py::none(),
          "The result table `table` (\"node\", \"time_step\") of analysis `analysis` as a dict of numpy "
          "columns by quantity name. Without `step`, the whole-run table or the last step that has it. "
          "`columns` (\"X,Y,PoreWaterPressure\") picks columns; by default every quantity of the header. "
          "Empty cells read as NaN.")
      .def("result_tables", &ResultTables,
           "Every result table of the package: dicts of analysis, step (None for whole-run tables), "
           "table and entry name.");
}

}  // namespace qvv7py
