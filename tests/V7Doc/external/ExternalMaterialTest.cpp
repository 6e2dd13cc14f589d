#include <gtest/gtest.h>

#include "V7Doc/external/ExternalMaterial.h"
#include "V7Doc/materials/MATL.h"
#include "tests/V7Doc/external/AddInTestSupport.h"

namespace v7 {
namespace {

TEST(ExternalMatlModel, ComparesFieldByFieldAndWritesFieldPairs) {
  const ExternalMatlModel a(L"LinearElastic", L"linear_elastic.so", L"E=20000;Nu=0.25");
  for (int field = 0; field < 3; ++field) {
    ExternalMatlModel b = a;
    EXPECT_EQ(a, b);
    if (field == 0) b.SetName(L"Other");
    if (field == 1) b.SetAssembly(L"other.so");
    if (field == 2) b.SetFields(L"E=20000");
    EXPECT_FALSE(a == b) << field;
  }

  std::wstring text;
  ASSERT_TRUE(ExternalMatlModel::MakeFields({{L"E", L"20000"}, {L" Nu ", L"0.25 "}}, text).succeeded());
  EXPECT_EQ(text, L"E=20000;Nu=0.25");
  ExternalMatlModel::FieldList back;
  ASSERT_TRUE(ExternalMatlModel(L"", L"", L" E = 1 ;;Nu=0.2;").ParseFields(back).succeeded());
  EXPECT_EQ(back, (ExternalMatlModel::FieldList{{L"E", L"1"}, {L"Nu", L"0.2"}}));
  ASSERT_TRUE(ExternalMatlModel(L"", L"", L"Path=a=b").ParseFields(back).succeeded());
  EXPECT_EQ(back, (ExternalMatlModel::FieldList{{L"Path", L"a=b"}}));

  for (const ExternalMatlModel::FieldList& bad :
       {ExternalMatlModel::FieldList{{L"", L"1"}}, {{L"a=b", L"1"}}, {{L"a;b", L"1"}}, {{L"a", L"1;2"}}}) {
    text = L"kept";
    EXPECT_EQ(ExternalMatlModel::MakeFields(bad, text).id(), 38014u);
    EXPECT_EQ(text, L"kept");
  }
  for (const wchar_t* bad : {L"E", L"=1", L"E=1;Nu"}) {
    EXPECT_EQ(ExternalMatlModel(L"", L"", bad).ParseFields(back).id(), 38015u) << str::to_utf8(bad);
    EXPECT_TRUE(back.empty());
  }
}

TEST(ExternalMaterial, LinearElasticAddInGivesHookesMatrixAndStressUpdate) {
  testing::AddInFolders folders;
  external::ExternalMaterial m;
  ASSERT_TRUE(m.Load(ExternalMatlModel(L"LinearElastic", L"linear_elastic.so", L"E=20000;Nu=0.25")).succeeded())
      << m.LastError().message_utf8();
  // E = 20000, nu = 0.25: E/((1+nu)(1-2nu)) = 32000, so lambda + 2G = 24000,
  // lambda = 8000 and G = E/(2(1+nu)) = 8000, worked out by hand.
  QviMatlPoint at{};
  at.stress[0] = -100;
  std::array<double, 36> d{};
  ASSERT_TRUE(m.CalculateMatrix(at, d).succeeded());
  for (int i = 0; i < 6; ++i)
    for (int j = 0; j < 6; ++j) {
      const double expected = i < 3 && j < 3 ? (i == j ? 24000 : 8000) : (i == j ? 8000 : 0);
      EXPECT_NEAR(d[i * 6 + j], expected, 1e-9) << i << "," << j;
    }
  std::array<double, 6> stress{};
  ASSERT_TRUE(m.UpdateStresses(at, {1e-3, 0, 0, 2e-3, 0, 0}, stress).succeeded());
  const std::array<double, 6> expected{-100 + 24, 8, 8, 16, 0, 0};
  for (int i = 0; i < 6; ++i) EXPECT_NEAR(stress[i], expected[i], 1e-9) << i;

  // Calls the model does not offer, and models that cannot be loaded.
  std::vector<double> force;
  EXPECT_EQ(m.CalculateForce({1, 2}, force).id(), 38007u);
  struct Case {
    ExternalMatlModel model;
    unsigned id;
  } cases[] = {{ExternalMatlModel(L"LinearElastic", L"", L""), 38016},
               {ExternalMatlModel(L"LinearElastic", L"linear_elastic.so", L"E"), 38015},
               {ExternalMatlModel(L"LinearElastic", L"linear_elastic.so", L"Nu=0.7"), 38005},
               {ExternalMatlModel(L"LinearElastic", L"linear_elastic.so", L"G=1"), 38005},
               {ExternalMatlModel(L"GardnerK", L"gardner_conductivity.so", L""), 38007},
               {ExternalMatlModel(L"LinearElastic", L"not_addin.so", L""), 38005}};
  for (const Case& c : cases) {
    external::ExternalMaterial bad;
    EXPECT_EQ(bad.Load(c.model).id(), c.id) << str::to_utf8(c.model.Fields()) << str::to_utf8(c.model.Name());
    EXPECT_FALSE(bad.IsLoaded());
    EXPECT_EQ(bad.CalculateMatrix(at, d).id(), 38010u);
  }

  // A bridge without LoadTypeImpl_ cannot load any model.
  testing::ScopedBridge partial(ExternalObject::Load(testing::FixtureDir() + L"/libQvi.MngSrv.Interop.partial.so"));
  external::ExternalMaterial noLoad;
  EXPECT_EQ(noLoad.Load(ExternalMatlModel(L"LinearElastic", L"linear_elastic.so", L"")).id(), 38002u);
}

}  // namespace
}  // namespace v7
