// Functions that refer to functions of the document's lists by number: a
// number that leads back where it started is reported on update and on load,
// and evaluates to the no-value marker instead of recursing.
#include <gtest/gtest.h>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/functions/FnReferences.h"
#include "V7Doc/functions/FnRegistry.h"
#include "V7Doc/functions/Func2D.h"
#include "FnTestSupport.h"

namespace v7 {
namespace {

constexpr double kNo = qvi::kNoValue;
constexpr unsigned kCycle = 33560, kTooLong = 33561;

struct CurrentDocument : fntest::CurrentDocument {
  // Appends a function to `list`, with points when given.
  void Add(GID list, const wchar_t* text, std::vector<FnPoint> pts = {}) {
    Func2D f(L"f", L"", fntest::Make(text));
    f.Points() = std::move(pts);
    doc->FunctionList(list)->Add(f);
  }
  IFn At(GID list, GID num) { return doc->FunctionList(list)->At(num).Fn(); }
};

TEST(FnReferences, CyclesHaveNoValueAndAreReportedOnUpdate) {
  struct Case {
    const char* what;
    std::vector<std::pair<GID, const wchar_t*>> functions;  // appended in order
    GID list, num;                                          // the function evaluated
    double value;                                           // at x = 5
    unsigned update;                                        // its update status, 0: success
  } cases[] = {
      {"direct", {{18, L"HydBoundFnTable(HydBoundFnNum=1)"}}, 18, 1, kNo, kCycle},
      {"through another",
       {{18, L"HydBoundFnTable(HydBoundFnNum=2)"}, {18, L"HydBoundFnTable(HydBoundFnNum=1)"}}, 18, 1,
       kNo, kCycle},
      {"through the modifier list",
       {{18, L"HydBoundFnTable(HydBoundFnNum=2,HydModFnNum=1)"}, {18, L"12"},
        {19, L"HydBoundFnTable(HydBoundFnNum=1)"}},
       18, 1, kNo, kCycle},
      {"into a cycle it is not part of",
       {{31, L"StressBoundFnTable(StressBoundFnNum=2)"}, {31, L"StressBoundFnTable(StressBoundFnNum=2)"}},
       31, 1, kNo, kCycle},
      {"a chain without a cycle",
       {{18, L"HydBoundFnTable(HydBoundFnNum=2,HydModFnNum=1)"}, {18, L"12"}, {19, L"0.5"}}, 18, 1, 6,
       0},
      {"the same function twice is no cycle",
       {{18, L"HydBoundFnTable(HydBoundFnNum=2,HydModFnNum=1)"}, {18, L"4"},
        {19, L"HydBoundFnTable(HydBoundFnNum=2)"}},
       18, 1, 16, 0},
      {"a probability density naming itself", {{40, L"Generalized Spline(ProbFnNum=1,Min=0,Max=1)"}},
       40, 1, kNo, kCycle},
      {"a water-content estimate naming itself",
       {{14, L"FnEstHydK(VolWCFnNum=1,HydKSat=1e-5,Min=0.1,Max=1000,NumPoints=10)"}}, 14, 1, kNo, kCycle},
  };
  for (const Case& c : cases) {
    CurrentDocument d;
    for (const auto& [list, text] : c.functions) d.Add(list, text);
    IFn fn = d.At(c.list, c.num);
    EXPECT_EQ(fn.Unshared()->UpdateCalculatedValues().id(), c.update) << c.what;
    EXPECT_EQ(fn(5), c.value) << c.what;
  }
}

TEST(FnReferences, LongChainsStopAtTheBound) {
  // 40 functions each naming the next, the last a constant: more hops than
  // one evaluation may take, so no value and a status, never a deep stack.
  CurrentDocument d;
  for (int i = 1; i < 40; ++i)
    d.Add(18, str::format(L"HydBoundFnTable(HydBoundFnNum=%s)", i + 1).c_str());
  d.Add(18, L"3");
  IFn first = d.At(18, 1);
  EXPECT_EQ(first(0), kNo);
  EXPECT_EQ(first.Unshared()->UpdateCalculatedValues().id(), kTooLong);
  EXPECT_EQ(d.At(18, 20)(0), 3);  // 20 hops are within the bound
}

TEST(FnReferences, LoadReportsEachCycleAsAWarning) {
  CurrentDocument d;
  d.Add(18, L"HydBoundFnTable(HydBoundFnNum=2)");
  d.Add(18, L"HydBoundFnTable(HydBoundFnNum=1)");
  d.Add(18, L"HydBoundFnTable(HydBoundFnNum=2)");  // leads into the cycle: not one of its own
  d.Add(31, L"StressBoundFnTable(StressBoundFnNum=1)");
  std::string xml;
  ASSERT_TRUE(files::DocumentToXml(*d.doc, xml).succeeded());
  QVDocument loaded;
  files::LoadReport report;
  ASSERT_TRUE(files::DocumentFromXml(xml, loaded, L"cycles.xml", &report).succeeded());
  std::vector<std::wstring> cycles;
  for (const gtl::status& w : report.warnings)
    if (w.id() == kCycle) {
      EXPECT_TRUE(w.is_warning());
      cycles.push_back(w.message());
    }
  ASSERT_EQ(cycles.size(), 2u);
  EXPECT_NE(cycles[0].find(L"HydBFns 1 -> HydBFns 2 -> HydBFns 1"), std::wstring::npos)
      << str::to_utf8(cycles[0]);
  EXPECT_NE(cycles[1].find(L"StressBFns 1 -> StressBFns 1"), std::wstring::npos)
      << str::to_utf8(cycles[1]);
}

// Every kind that names a function by number declares the reference, so
// that the cycle check sees it: kinds added later are held to the same rule.
TEST(FnReferences, EveryKindWithAFunctionNumberDeclaresIt) {
  for (const std::wstring& kind : RegisteredFnKinds()) {
    IFn fn;
    ASSERT_TRUE(GetFnImplFromName(kind, fn).succeeded());
    std::vector<FnAttr> attrs;
    fn->GetAttributes(attrs);
    for (const FnAttr& a : attrs) {
      const bool number = a.Name.size() > 5 && a.Name.ends_with(L"FnNum");
      if (!number) continue;
      EXPECT_NE(dynamic_cast<const IFnReferences*>(fn.get()), nullptr)
          << str::to_utf8(kind) << " names a function by " << str::to_utf8(a.Name)
          << " but does not implement IFnReferences";
      const IFn numbered = [&] {
        IFn f = fn;
        EXPECT_TRUE(f.SetAttribute(FnAttr(a.Name, L"7")).succeeded()) << str::to_utf8(kind);
        return f;
      }();
      const auto refs = FnReferencesOf(*numbered);
      EXPECT_TRUE(std::any_of(refs.begin(), refs.end(), [](const FnReference& r) { return r.num == 7; }))
          << str::to_utf8(kind) << " does not report " << str::to_utf8(a.Name);
    }
  }
}

}  // namespace
}  // namespace v7
