#include <gtest/gtest.h>

#include <cmath>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentFile.h"
#include "V7Doc/functions/Func2D.h"
#include "V7Doc/functions/FnExternal.h"
#include "tests/V7Doc/external/AddInTestSupport.h"

namespace v7 {
namespace {

constexpr const wchar_t* kGardner = L"External(Assembly=gardner_conductivity.so,Function=GardnerK,Field.KSat=2e-06,Field.Alpha=0.1)";

// Gardner (1958): k = KSat exp(-Alpha psi), worked out here independently.
double Gardner(double ksat, double alpha, double psi) { return psi <= 0 ? ksat : ksat * std::exp(-alpha * psi); }

FnExternal& Ext(IFn& fn) { return dynamic_cast<FnExternal&>(*fn.Unshared()); }

TEST(FnExternal, BindsEvaluatesAndRoundTripsAnAddInFunction) {
  testing::AddInFolders folders;
  IFn fn;
  ASSERT_TRUE(FnCreate(kGardner, fn).succeeded());
  const auto& ext = dynamic_cast<const FnExternal&>(*fn);
  ASSERT_TRUE(ext.IsLoaded()) << ext.LastError().message_utf8();
  for (double psi : {-5.0, 0.0, 1.0, 10.0, 123.4})
    EXPECT_NEAR(fn(psi), Gardner(2e-6, 0.1, psi), 1e-15 * 2e-6) << psi;
  EXPECT_TRUE(fn->LastError().succeeded());
  EXPECT_EQ(fn.as_wstring(), kGardner);

  IFn again;
  ASSERT_TRUE(FnCreate(fn.as_wstring(), again).succeeded());
  EXPECT_EQ(again.as_wstring(), kGardner);
  EXPECT_DOUBLE_EQ(again(20), fn(20));

  FnAttr attr(L"Field.Alpha");
  EXPECT_TRUE(fn->LookupAttribute(attr));
  EXPECT_EQ(attr.Value, L"0.1");
  EXPECT_EQ(FnExternal::FnAttrField(L"N", L"2").as_wstring(), L"Field.N=2");
}

TEST(FnExternal, FieldValuesSetThroughFieldRefReachTheAddIn) {
  testing::AddInFolders folders;
  IFn fn;
  ASSERT_TRUE(FnCreate(kGardner, fn).succeeded());
  IFn shared = fn;  // a second record holding the same function

  std::size_t alpha = 0;
  FnExternal& ext = Ext(fn);  // unshares: `shared` keeps the old object
  ASSERT_TRUE(ext.FindField(L"Alpha", alpha));
  ASSERT_TRUE(ext.Field(alpha).SetValue(L"0.02").succeeded());
  EXPECT_NEAR(fn(50), Gardner(2e-6, 0.02, 50), 1e-21);
  EXPECT_NEAR(shared(50), Gardner(2e-6, 0.1, 50), 1e-21);
  EXPECT_EQ(fn.as_wstring(),
            L"External(Assembly=gardner_conductivity.so,Function=GardnerK,Field.KSat=2e-06,Field.Alpha=0.02)");

  // Copy-on-write through attributes as for every kind.
  IFn copy = fn;
  ASSERT_TRUE(copy.SetAttribute(FnExternal::FnAttrField(L"KSat", L"1e-07")).succeeded());
  EXPECT_NEAR(copy(0), 1e-7, 1e-22);
  EXPECT_NEAR(fn(0), 2e-6, 1e-21);

  // A value the text cannot hold is refused; one the add-in refuses is kept
  // and reported, and evaluation stops until it is corrected.
  EXPECT_EQ(ext.Field(alpha).SetValue(L"1,5").id(), 38013u);
  EXPECT_EQ(ext.Field(alpha).SetValue(L"abc").id(), 38005u);
  EXPECT_EQ(fn(1), qvi::kNoValue);
  EXPECT_NE(fn->LastError().message().find(L"Alpha"), std::wstring::npos);
  EXPECT_TRUE(ext.Field(alpha).SetValue(L"0.1").succeeded());
  EXPECT_NEAR(fn(10), Gardner(2e-6, 0.1, 10), 1e-21);
}

TEST(FnExternal, OffersReviewMaxPVAndSetIDWhenTheAddInDoes) {
  testing::AddInFolders folders;
  IFn fn(new FnExternal());
  ASSERT_TRUE(Ext(fn).SetExternalFunction(L"gardner_conductivity.so", L"GardnerK").succeeded());
  // The declared fields at their declared defaults.
  EXPECT_EQ(fn.as_wstring(),
            L"External(Assembly=gardner_conductivity.so,Function=GardnerK,Field.KSat=1e-5,Field.Alpha=0.05)");
  EXPECT_NEAR(Ext(fn).MaxPV(), std::log(1e6) / 0.05, 1e-9);
  ASSERT_TRUE(fn.InitializeInstance(7, 0).succeeded());
  ASSERT_NE(fn->GetReview(), nullptr);
  EXPECT_EQ(fn->GetReview()->ReviewText(), L"Gardner conductivity #7: KSat=1e-05 m/s, Alpha=0.05 1/kPa");

  std::vector<FnExternal::LookupItem> items;
  ASSERT_TRUE(FnExternal::Scan(L"gardner_conductivity.so", items).succeeded());
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items[0].Label, L"GardnerK (KSat, Alpha)");
  // Only the types offering "Calculate" are listed.
  ASSERT_TRUE(FnExternal::Scan(L"faulty.so", items).succeeded());
  std::vector<std::wstring> listed;
  for (const auto& i : items) listed.push_back(i.Function);
  EXPECT_EQ(listed, (std::vector<std::wstring>{L"Fails", L"InitFails", L"WrongSignature", L"CreatesNothing"}));
  EXPECT_EQ(items[0].Label, L"Fails (Limit)");
}

TEST(FnExternal, CallFailuresGiveNoValueAndLastErrorUntilTheNextGoodCall) {
  testing::AddInFolders folders;
  IFn fn;
  ASSERT_TRUE(FnCreate(L"External(Assembly=faulty.so,Function=Fails,Field.Limit=10)", fn).succeeded());
  EXPECT_DOUBLE_EQ(fn(3), 3);
  EXPECT_EQ(fn(-1), qvi::kNoValue);
  EXPECT_EQ(fn->LastError().id(), 38008u);
  EXPECT_NE(fn->LastError().message().find(L"code 5"), std::wstring::npos);
  EXPECT_EQ(fn(11), qvi::kNoValue);  // NaN from the add-in
  EXPECT_EQ(fn->LastError().id(), 38009u);
  EXPECT_DOUBLE_EQ(fn(4), 4);
  EXPECT_TRUE(fn->LastError().succeeded());
}

// Every way the add-in can be unavailable: the function is still created
// from its text, keeps it, evaluates to the no-value marker and says why.
TEST(FnExternal, ContainsEveryFailureToBind) {
  testing::AddInFolders folders;
  const ExternalObject partial = ExternalObject::Load(testing::FixtureDir() + L"/libQvi.MngSrv.Interop.partial.so");
  struct Case {
    const char* what;
    std::wstring text;
    const ExternalObject* bridge;  // null: the built bridge
    unsigned id;
    const wchar_t* detail;
  } cases[] = {
      {"no bridge", kGardner, nullptr, 38000, L"libNoBridge.so"},
      {"bridge without LoadTypeImpl_", kGardner, &partial, 38002, L"LoadTypeImpl_"},
      {"incompatible", L"External(Assembly=incompatible.so,Function=X)", nullptr, 38005, L"version"},
      {"not an add-in", L"External(Assembly=not_addin.so,Function=X)", nullptr, 38005, L"not an add-in"},
      {"no such type", L"External(Assembly=faulty.so,Function=Absent)", nullptr, 38005, L"Absent"},
      {"no Calculate", L"External(Assembly=faulty.so,Function=NoCalculate)", nullptr, 38007, L"Calculate"},
      {"Initialize fails", L"External(Assembly=faulty.so,Function=InitFails)", nullptr, 38005, L"code 4"},
      {"wrong signature", L"External(Assembly=faulty.so,Function=WrongSignature)", nullptr, 38005, L"signature"},
      {"create gives nothing", L"External(Assembly=faulty.so,Function=CreatesNothing)", nullptr, 38005,
       L"no instance"},
      {"unknown field", L"External(Assembly=faulty.so,Function=Fails,Field.Nope=1)", nullptr, 38005, L"Nope"},
      {"missing file", L"External(Assembly=absent.so,Function=X)", nullptr, 38004, L"absent.so"},
      {"escaping name", L"External(Assembly=../addins/faulty.so,Function=Fails)", nullptr, 38003, L"faulty.so"},
      {"no function", L"External(Assembly=faulty.so)", nullptr, 38006, L"Function"},
  };
  const ExternalObject noBridge = ExternalObject::Load(L"libNoBridge.so");
  for (const Case& c : cases) {
    testing::ScopedBridge bridge(c.bridge ? *c.bridge : c.what == std::string("no bridge") ? noBridge
                                                                                        : ExternalObject::Instance());
    IFn fn;
    EXPECT_TRUE(FnCreate(c.text, fn).succeeded()) << c.what;
    EXPECT_EQ(fn.as_wstring(), c.text) << c.what;
    EXPECT_EQ(fn(1), qvi::kNoValue) << c.what;
    EXPECT_EQ(fn->LastError().id(), c.id) << c.what << ": " << fn->LastError().message_utf8();
    EXPECT_NE(fn->LastError().message().find(c.detail), std::wstring::npos) << c.what << ": "
                                                                              << fn->LastError().message_utf8();
    EXPECT_EQ(fn->GetReview(), nullptr);
    // Choosing the add-in explicitly reports the same failure.
    if (c.text.find(L"Field.") == std::wstring::npos && c.text.find(L"Function=") != std::wstring::npos) {
      IFn chosen(new FnExternal());
      FnAttr assembly(L"Assembly"), function(L"Function");
      fn->LookupAttribute(assembly);
      fn->LookupAttribute(function);
      EXPECT_EQ(Ext(chosen).SetExternalFunction(assembly.Value, function.Value).id(), c.id) << c.what;
    }
  }
  // A malformed field attribute is the one error of the text itself.
  IFn fn;
  EXPECT_EQ(FnCreate(L"External(Assembly=faulty.so,Function=Fails,Field.=1)", fn).id(), 33001u);
}

// A project whose add-in is missing on this machine still loads, and saves
// the function unchanged; where the add-in is present it evaluates again.
TEST(FnExternal, DocumentWithAnUnavailableAddInLoadsAndSavesUnchanged) {
  testing::AddInFolders folders;
  QVDocument doc;
  Func2D f(L"k");
  ASSERT_TRUE(f.SetFnText(kGardner).succeeded());
  doc.FunctionList(11)->Add(f);
  std::string xml, again;
  ASSERT_TRUE(files::DocumentToXml(doc, xml).succeeded());
  ASSERT_NE(xml.find("Function=GardnerK"), std::string::npos);
  {
    testing::ScopedBridge none(ExternalObject::Load(L"libNoBridge.so"));
    QVDocument loaded;
    ASSERT_TRUE(files::DocumentFromXml(xml, loaded, L"mem").succeeded());
    const IFn& fn = loaded.FunctionList(11)->At(1).Fn();
    EXPECT_EQ(fn(10), qvi::kNoValue);
    EXPECT_EQ(fn->LastError().id(), 38000u);
    ASSERT_TRUE(files::DocumentToXml(loaded, again).succeeded());
    EXPECT_EQ(again, xml);
  }
  QVDocument loaded;
  ASSERT_TRUE(files::DocumentFromXml(again, loaded, L"mem").succeeded());
  EXPECT_NEAR(loaded.FunctionList(11)->At(1).Fn()(10), Gardner(2e-6, 0.1, 10), 1e-21);
}

}  // namespace
}  // namespace v7
