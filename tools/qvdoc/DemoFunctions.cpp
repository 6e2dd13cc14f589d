// Demo step of the functions: drawn point tables in the document's function
// lists, evaluated directly and through a function number with a modifier.
#include <cstdio>
#include <iostream>

#include "QVI/str/Convert.h"
#include "V7Doc/functions/FnFunc2DTable.h"
#include "V7Doc/functions/Func2D.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

bool AddFunction(v7::Func2DTable& list, const wchar_t* name, const wchar_t* text,
                 std::vector<v7::FnPoint> points) {
  v7::IFn fn;
  if (const gtl::status s = v7::FnCreate(text, fn); !s.succeeded()) {
    std::cerr << "qvdoc demo: " << s.message_utf8() << "\n";
    return false;
  }
  v7::Func2D f(name, L"", fn);
  f.Points() = std::move(points);
  list.Add(std::move(f));
  return true;
}

bool ShowFunctions(DemoContext& c) {
  auto& doc = *c.document;
  bool ok = AddFunction(*doc.FunctionList(14), L"Silty sand", L"VolWCSpline(Tension=50)",
                        {{-1000, 0.08, 0}, {-100, 0.12, 0}, {-10, 0.3, 0}, {-1, 0.38, 0}, {0, 0.4, 0}});
  ok = ok && AddFunction(*doc.FunctionList(11), L"Silty sand K", L"HydKFn(Tension=50,SlopeAfter=0)",
                         {{-1000, 1e-11, 0}, {-100, 1e-9, 0}, {-10, 1e-6, 0}, {0, 1e-5, 0}});
  ok = ok && AddFunction(*doc.FunctionList(18), L"Reservoir level", L"Linear()",
                         {{0, 20, 0}, {86400, 25, 0}, {172800, 25, 0}});
  ok = ok && AddFunction(*doc.FunctionList(19), L"Drawdown factor", L"Linear(SlopeAfter=0)",
                         {{0, 1, 0}, {172800, 0.8, 0}});
  if (!ok) return false;
  doc.ContainerManager().NotifyAllUpdateCalculatedValues();

  c.out << "Functions: two material curves and a boundary function with a modifier.\n";
  char line[128];
  const v7::Func2D& wc = doc.FunctionList(14)->At(1);
  const v7::Func2D& k = doc.FunctionList(11)->At(1);
  c.out << "  " << str::to_utf8(wc.Fn().as_wstring()) << " and " << str::to_utf8(k.Fn().as_wstring()) << "\n";
  for (double p : {-500.0, -50.0, -5.0, 0.0}) {
    std::snprintf(line, sizeof line, "  pore-water pressure %8g kPa: water content %.4f, K %.3e m/s\n", p,
                  wc(p), k(p));
    c.out << line;
  }
  v7::IFn boundary(new v7::FnHydBoundTable(1, 1));
  c.out << "  " << str::to_utf8(boundary.as_wstring()) << " (head times the modifier):\n";
  for (double t : {0.0, 43200.0, 86400.0, 172800.0}) {
    std::snprintf(line, sizeof line, "    t = %6g s: head %.3f m\n", t, boundary(t));
    c.out << line;
  }
  return true;
}

const DemoStepRegistrar step(300, "Functions", &ShowFunctions);

}  // namespace
}  // namespace qvdoc
