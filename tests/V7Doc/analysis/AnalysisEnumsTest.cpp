#include "V7Doc/analysis/AnalysisEnums.h"

#include <gtest/gtest.h>

#include "V7Doc/analysis/TimeStepEnums.h"

namespace {

TEST(AnalysisEnums, OddEntries) {
  v7::SideFnType f = v7::SideFnType::Constant;
  EXPECT_TRUE(meta::FromName(L"SideFunction", f).succeeded());
  EXPECT_EQ(f, v7::SideFnType::None) << "the second name of value 0";
  EXPECT_EQ(meta::ToName(v7::SideFnType::SideFunction), L"None") << "the first name is written";

  EXPECT_FALSE(meta::EnumTable<v7::SolverType>().Contains(1)) << "solver value 1 is unused";
  v7::SolverType solver{};
  EXPECT_FALSE(meta::FromName(L"1", solver, meta::MetaFormatType::Number).succeeded());

  v7::AnalysisKind kind = v7::AnalysisKind::Hydro;
  EXPECT_EQ(meta::ToName(v7::AnalysisKind::None), L"");
  EXPECT_TRUE(meta::FromName(L"", kind).succeeded());
  EXPECT_EQ(kind, v7::AnalysisKind::None) << "the empty name is the deleted-record kind";

  v7::TimeStepMode unknown{};
  EXPECT_TRUE(meta::FromName(L"No such name", unknown).is_warning());
  EXPECT_EQ(static_cast<std::int32_t>(unknown), qvi::kNone);
}

TEST(AnalysisEnums, MethodsOfEachKind) {
  using K = v7::AnalysisKind;
  using M = v7::AnlsMethod;
  struct {
    K kind; M method; bool allowed, transient;
  } cases[] = {
      {K::Stab, M::MorgensternPrice, true, false}, {K::Stab, M::Transient, false, false},
      {K::Stab, M::FE_Deform, true, false}, {K::Hydro, M::SteadyState, true, false},
      {K::Hydro, M::Transient, true, true}, {K::Hydro, M::Spencer, false, false},
      {K::Deform, M::Insitu, true, false}, {K::Deform, M::Consolidation, true, true},
      {K::Deform, M::UncoupledConsolidation, true, true}, {K::Shake, M::Dynamic, true, true},
      {K::Shake, M::NonlinearDynamic, true, true}, {K::Shake, M::Static, true, false},
      {K::Thermo, M::ConvectiveHeatTransfer, true, true}, {K::Thermo, M::SteadyState, true, false},
      {K::Solute, M::AdvectionDispersion, true, true}, {K::Evapo, M::TransientIso, true, true},
      {K::None, M::Transient, false, false}, {K::Hydro, M::Undefined, false, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(v7::IsMethodAllowed(c.kind, c.method), c.allowed)
        << static_cast<int>(c.kind) << " " << str::to_utf8(meta::ToName(c.method));
    EXPECT_EQ(v7::IsMethodTransient(c.kind, c.method), c.transient)
        << static_cast<int>(c.kind) << " " << str::to_utf8(meta::ToName(c.method));
  }
  // Every method is admitted by at least one kind, except None.
  for (const auto& e : meta::EnumTable<M>().Entries()) {
    const auto m = static_cast<M>(e.value);
    if (m == M::None || m == M::Undefined) continue;
    bool any = false;
    for (int k = 0; k <= 6; ++k) any = any || v7::IsMethodAllowed(static_cast<K>(k), m);
    EXPECT_TRUE(any) << str::to_utf8(e.name);
  }
}

}  // namespace
