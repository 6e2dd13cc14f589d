// Function evaluation over numpy arrays: qvv7.evaluate, qvv7.Function and
// Document.evaluate. The loop over the array runs in C++; inputs that are
// NaN give NaN, and so do inputs where the function has no value (the
// library's no-value marker), which is how numpy marks a missing number.
#include <pybind11/numpy.h>

#include <chrono>
#include <cmath>
#include <limits>

#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "V7Doc/files/DocumentPaths.h"
#include "V7Doc/core/ContainerIDs.h"
#include "V7Doc/functions/FnImpl.h"
#include "python/src/Bindings.h"

namespace qvv7py {
namespace {

using Array = py::array_t<double, py::array::c_style | py::array::forcecast>;

// A function ready to evaluate, with the project whose functions it may
// name by number (none for a function given as text alone).
struct Function {
  v7::IFn fn;
  v7::QVDocumentHandle doc;
  std::wstring source;  // the text or the path it came from
};

void EvaluateInto(const v7::IFn& fn, const double* x, double* y, std::size_t n) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  for (std::size_t i = 0; i < n; ++i) {
    const double v = std::isnan(x[i]) ? nan : fn(x[i]);
    y[i] = qvi::IsNoValue(v) ? nan : v;
  }
}

py::object Evaluate(const Function& f, const py::object& input) {
  // A plain number gives a float back.
  if (py::isinstance<py::float_>(input) || py::isinstance<py::int_>(input)) {
    const double x = input.cast<double>();
    double y = 0;
    std::unique_ptr<CurrentDocument> current;
    if (f.doc) current = std::make_unique<CurrentDocument>(f.doc);
    EvaluateInto(f.fn, &x, &y, 1);
    return py::float_(y);
  }
  const Array x = py::cast<Array>(input);
  Array y(std::vector<py::ssize_t>(x.shape(), x.shape() + x.ndim()));
  std::unique_ptr<CurrentDocument> current;
  if (f.doc) current = std::make_unique<CurrentDocument>(f.doc);
  EvaluateInto(f.fn, x.data(), y.mutable_data(), static_cast<std::size_t>(x.size()));
  return std::move(y);
}

Function FromText(const std::string& text) {
  Function f;
  f.source = str::to_wstring(text);
  const gtl::status s = v7::FnCreate(f.source, f.fn);
  if (s.failed()) throw StatusError("cannot read the function \"" + text + "\": " + s.message_utf8());
  if (const gtl::status u = f.fn.Unshared()->UpdateCalculatedValues(); u.failed())
    throw StatusError("cannot update the function \"" + text + "\": " + u.message_utf8());
  return f;
}

// The function of a function-list record ("HKFns[1]", "Functions.Material.
// Hydraulic.KFns[1]"): the list whose storage holds the record.
Function FromProject(const Project& p, const std::string& path) {
  const std::wstring w = str::to_wstring(path);
  const oc::IOC record = Resolve(p, w);
  const auto* fn = static_cast<const v7::Func2D*>(record.Object());
  for (v7::GID list = v7::container::FirstFunctionList; fn && list <= v7::container::LastFunctionList; ++list)
    if (v7::Func2DTable* table = p.doc->FunctionList(list))
      if (auto it = table->Find(fn); it != table->end()) return {it->Fn(), p.doc, w};
  throw StatusError(path + " is not a function of a function list (e.g. \"HKFns[1]\")");
}

}  // namespace

void BindFunctions(py::module_& m) {
  py::class_<Function>(m, "Function", R"(A function of one variable, ready to evaluate.

Calling it with a float gives a float; with a numpy array (any shape) gives
an array of the same shape, evaluated in one C++ loop. NaN stands for "no
value", in the inputs and in the outputs.)")
      .def(py::init(&FromText), py::arg("text"), "A function from its text, e.g. \"Linear()\" or \"2.5\".")
      .def("__call__", &Evaluate, py::arg("x"))
      .def_property_readonly("text", [](const Function& f) { return str::to_utf8(f.fn.as_wstring()); },
                             "The function's full text form.")
      .def_property_readonly("source", [](const Function& f) { return str::to_utf8(f.source); },
                             "The text or project path it was made from.")
      .def("__repr__", [](const Function& f) { return "<qvv7.Function " + str::to_utf8(f.fn.as_wstring()) + ">"; });

  m.def(
      "evaluate", [](const std::string& text, const py::object& x) { return Evaluate(FromText(text), x); },
      py::arg("text"), py::arg("x"),
      "Evaluate the function written as `text` at `x` (a float, or a numpy array of any shape, evaluated "
      "in C++). Raises Error when the text is not a function.");

  // The same loop without Python around it, timed in C++: the baseline the
  // benchmark script compares a call from Python with.
  m.def(
      "_time_cpp_loop",
      [](const Function& f, const Array& x, int repeats) {
        // The output is allocated and touched before the clock starts: the
        // baseline is the loop alone.
        std::vector<double> y(static_cast<std::size_t>(x.size()));
        const auto start = std::chrono::steady_clock::now();
        for (int r = 0; r < repeats; ++r) EvaluateInto(f.fn, x.data(), y.data(), y.size());
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() / repeats;
      },
      py::arg("function"), py::arg("x"), py::arg("repeats") = 1);

  auto cls = py::getattr(m, "Document").cast<py::class_<Project, ProjectPtr>>();
  cls.def(
         "function", [](const ProjectPtr& p, const std::string& path) { return FromProject(*p, path); },
         py::arg("path"), "The function of a function-list record, e.g. \"HKFns[1]\".")
      .def(
          "evaluate",
          [](const ProjectPtr& p, const std::string& path, const py::object& x) {
            return Evaluate(FromProject(*p, path), x);
          },
          py::arg("path"), py::arg("x"),
          "Evaluate the function of a function-list record (\"HKFns[1]\") at `x`, a float or numpy array.");
}

}  // namespace qvv7py
