#include <gtest/gtest.h>

#include "OC/Registry.h"
#include "OC/Schema.h"
#include "tests/OC/TestRecords.h"

namespace octest {
namespace {

TEST(Declaration, ValidateMetaDataChecksTraitsAgainstType) {
  using T = meta::MetaDataTraits;
  const meta::MetaEnumCommon* kinds = &meta::EnumTable<Kind>();
  auto with_table = [&](T t) {
    t.enum_table = kinds;
    return t;
  };
  struct Case {
    oc::ValueType type;
    T traits;
    bool ok;
  };
  const Case cases[] = {
      {oc::ValueType::Double, T{}.Bounds(0, 1).Default(L"0.5"), true},
      {oc::ValueType::Double, T{}.Bounds(1, 0), false},
      {oc::ValueType::Double, T{}.Bounds(0, 1).Default(L"2"), false},
      {oc::ValueType::Double, T{}.Default(L"abc"), false},
      {oc::ValueType::WString, T{}.Bounds(0, 1), false},
      {oc::ValueType::Bool, T{}.Default(L"true"), true},
      {oc::ValueType::Int32, T{}.Default(L"1.5"), false},
      {oc::ValueType::UInt32, T{}.Default(L"-1"), false},
      {oc::ValueType::Enum, T{}, false},
      {oc::ValueType::Enum, with_table(T{}.Default(L"Clay")), true},
      {oc::ValueType::Enum, with_table(T{}.Default(L"Granite")), false},
      {oc::ValueType::Double, with_table(T{}), false},
      {oc::ValueType::Struct, T{}.Default(L"1"), false},
      {oc::ValueType::Double, T{}.Default(L"inf"), false},  // non-finite unless declared so
      {oc::ValueType::Int32, T{}.Flag(T::NonFinite), false},
  };
  for (std::size_t i = 0; i < std::size(cases); ++i)
    EXPECT_EQ(oc::ValidateMetaData(cases[i].type, cases[i].traits).succeeded(), cases[i].ok) << "case " << i;
}

struct Bad {
  double a_ = 1.0;
  double b_ = 0.0;
  std::vector<Point> list_;
  friend bool operator==(const Bad&, const Bad&) = default;
};

TEST(Declaration, ProblemsAreReportedNotIgnored) {
  const oc::RecordType& t = oc::Schema<Bad>(L"Bad")
                                .Add(&Bad::a_, L"a_", L"A", meta::MetaDataTraits{}.Default(L"2"))
                                .Add(&Bad::b_, L"b_", L"A")
                                .Add(&Bad::list_, L"list_", L"List")
                                .Add(&Bad::b_, L"a_", L"Bad Tag")
                                .Done();
  // Default unlike the initial value, a tag used twice, a collection
  // without element tag, a name declared twice, a tag that is no element name.
  EXPECT_EQ(t.DeclarationErrors().size(), 5u);
  for (const auto& s : t.DeclarationErrors()) EXPECT_EQ(s.id(), 31031u) << s.message_utf8();
  EXPECT_TRUE(oc::OCRegistry::Instance().InitializationComplete().failed());
}

TEST(Declaration, RegistryFindsTemplatesByNameAndTag) {
  RegisterTestTypes();
  const oc::Template* root = oc::GetTemplate(L"TestDoc");
  ASSERT_TRUE(root);
  EXPECT_EQ(root->Record(), &oc::TypeOf<Doc>());
  const oc::RegID layers = oc::SubRegID(root->id, L"layers");
  ASSERT_NE(layers, 0u);
  EXPECT_EQ(oc::SubRegID(root->id, L"test::doc::Layers"), layers);
  EXPECT_EQ(oc::SubRegIDByTag(root->id, L"Layers"), layers);
  EXPECT_EQ(oc::SubRegIDByTag(root->id, L"Functions.Material.Hydraulic.KFns"), oc::SubRegID(root->id, L"HKFns"));
  const oc::RegID weight = oc::SubRegID(layers, L"fWeight_");
  ASSERT_NE(weight, 0u);
  EXPECT_EQ(oc::GetTemplate(weight)->member->persist.tag, L"UnitWeight");
  EXPECT_EQ(*oc::DataTraits(weight)->max, 100.0);
  EXPECT_EQ(oc::SubRegID(layers, L"nope"), 0u);
  EXPECT_EQ(oc::DataTraits(root->id), nullptr);
  // An alias to no member is refused.
  const oc::OCAliasRegistrator bad(oc::TypeOf<Doc>(), {L"test::Nothing", L"nothing"});
  EXPECT_EQ(bad.Status().id(), 31001u);
}

}  // namespace
}  // namespace octest
