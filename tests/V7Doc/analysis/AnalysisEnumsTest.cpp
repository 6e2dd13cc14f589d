// Every analysis enumeration: exact names and values, both directions.
#include "V7Doc/analysis/AnalysisEnums.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "V7Doc/analysis/TimeStepEnums.h"

namespace {

using Names = std::vector<std::pair<std::int32_t, std::wstring>>;

// The expected (value, written name) pairs, copied from the persisted format,
// independent of the tables under test.
template <class E>
void ExpectTable(const Names& expected) {
  const auto& table = meta::EnumTable<E>();
  std::size_t written = 0;
  for (const auto& e : table.Entries())
    if (!(e.traits & (meta::MetaEnumCommon::Alias | meta::MetaEnumCommon::Undefined))) ++written;
  EXPECT_EQ(written, expected.size()) << "entries of " << str::to_utf8(table.EnumName());
  for (const auto& [value, name] : expected) {
    EXPECT_EQ(meta::ToName(static_cast<E>(value)), name) << value;
    E back{};
    EXPECT_TRUE(meta::FromName(name, back).succeeded()) << str::to_utf8(name);
    EXPECT_EQ(static_cast<std::int32_t>(back), value) << str::to_utf8(name);
  }
  EXPECT_EQ(table.Entries().back().value, qvi::kNone) << "ends with the undefined value";
  E unknown{};
  EXPECT_TRUE(meta::FromName(L"No such name", unknown).is_warning());
  EXPECT_EQ(static_cast<std::int32_t>(unknown), qvi::kNone);
}

TEST(AnalysisEnums, NamesAndValuesRoundTrip) {
  ExpectTable<v7::AnalysisKind>({{0, L"SOLUTE"}, {1, L"SHAKE"}, {2, L"HYDRO"}, {3, L"DEFORM"},
                                 {4, L"STAB"}, {5, L"THERMO"}, {6, L"EVAPO"}});
  ExpectTable<v7::AnlsMethod>(
      {{0, L"None"},           {1, L"Ordinary"},
       {2, L"Spencer"},        {3, L"Morgenstern-Price"},
       {4, L"GLE"},            {5, L"CorpsOfEng1"},
       {6, L"CorpsOfEng2"},    {7, L"Lowe-Karafiath"},
       {8, L"JanbuGeneral"},   {9, L"FE_Deform"},
       {10, L"FE_ShakeStatic"}, {11, L"FE_ShakeDynamic"},
       {12, L"Sarma"},         {13, L"SteadyState"},
       {14, L"Transient"},     {15, L"TransientCouple"},
       {16, L"TransientUnCouple"}, {17, L"TransientIso"},
       {18, L"Consolidation"}, {19, L"DensityDependent"},
       {20, L"AdvectionDispersion"}, {21, L"ParticleTrackingForward"},
       {22, L"ParticleTrackingBackward"}, {23, L"Dynamic"},
       {24, L"Load"},          {25, L"StressRedist"},
       {26, L"Insitu"},        {27, L"Insitu2"},
       {28, L"Convective Heat Transfer"}, {29, L"Uncoupled Consolidation"},
       {30, L"Nonlinear Dynamic"}, {31, L"Static"},
       {32, L"DynamicPWP"},    {33, L"DynamicDeformation"}});
  ExpectTable<v7::InitialCondOption>(
      {{0, L"None"}, {1, L"Parent"}, {2, L"InitialWaterTable"}, {3, L"Other"},
       {4, L"MaterialProperties"}, {5, L"3DFunction"}, {6, L"Ru"}, {7, L"Bbar"},
       {8, L"PiezoLine"}, {9, L"PiezoLineRu"}, {10, L"PiezoLineBbar"}, {11, L"PressureHeadGrid"}});
  ExpectTable<v7::AnlsDiff>({{0, L"BackwardDifference"}, {1, L"CentralDifference"}});
  ExpectTable<v7::StabSlipDir>({{0, L"LeftToRight"}, {1, L"RightToLeft"}});
  ExpectTable<v7::SlipSurfaceOption>({{0, L"None"}, {1, L"GridAndRadius"}, {2, L"FullySpecified"},
                                      {3, L"Block"}, {4, L"EntryAndExit"}, {5, L"AutoSearch"}});
  ExpectTable<v7::SideFnType>({{0, L"None"}, {1, L"Constant"}, {2, L"HalfSine"},
                               {3, L"ClippedSine"}, {4, L"Trapezoidal"}, {5, L"FullySpecified"},
                               {6, L"CorpsOfEng1"}, {7, L"CorpsOfEng2"}, {8, L"Lowe-Karafiath"},
                               {9, L"FE"}, {10, L"Sarma"}, {11, L"JanbuGeneral"}});
  ExpectTable<v7::ConvergenceMeasure>(
      {{1, L"Nodal"}, {2, L"VectorNorm"}, {3, L"IterationCount"}, {4, L"CourantNumber"}});
  ExpectTable<v7::ConvergenceNorm>({{0, L"HeadVectorNorm"}, {1, L"GaussPointConductivity"}});
  ExpectTable<v7::PWPChangeOption>({{0, L"PWP Change from Results"},
                                    {1, L"PWP Change from Initial Cond. and Result"},
                                    {2, L"PWP Change from Initial Cond. and Water Table"}});
  ExpectTable<v7::MotionType>({{1, L"TotalMotion"}, {2, L"IncrementalMotion"}});
  ExpectTable<v7::TimeIntegration>({{1, L"WilsonTheta"}, {2, L"NewmarkDelta"}, {3, L"CrankNicolson"}});
  ExpectTable<v7::MassMatrixType>({{1, L"Consistent"}, {2, L"Lumped"}});
  ExpectTable<v7::StressBasis>({{1, L"Effective"}, {2, L"Total"}});
  ExpectTable<v7::SolverType>({{0, L"Direct"}, {2, L"ParDirect"}});
  ExpectTable<v7::GasDiffusionType>({{0, L""}, {1, L"Oxygen"}, {2, L"Radon"}});
  ExpectTable<v7::VariationType>({{0, L"Linear"}, {1, L"Exponential"}});
  ExpectTable<v7::ParamVariation>({{0, L"Constant"}, {1, L"Probabilistic"}, {2, L"Sensitivity"}});
  ExpectTable<v7::InputDefinition>({{0, L"Define"}, {1, L"Contour"}});
  ExpectTable<v7::TimeStepMode>({{0, L"None"}, {1, L"Duration"}, {2, L"IncrementSize"},
                                 {3, L"UntilDuration"}, {4, L"External"}, {5, L"Dynamic"},
                                 {6, L"Adaptive"}, {7, L"Direct"}});
  ExpectTable<v7::IncrementType>({{0, L"Linear"}, {1, L"Exponential"}});
}

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

  v7::AnlsMethod m{};
  EXPECT_TRUE(meta::FromName(L"Convective Heat Transfer", m).succeeded());
  EXPECT_EQ(m, v7::AnlsMethod::ConvectiveHeatTransfer);
  EXPECT_EQ(meta::ToName(m), L"Convective Heat Transfer") << "blanks are kept";
}

TEST(AnalysisEnums, MethodsOfEachKind) {
  using K = v7::AnalysisKind;
  using M = v7::AnlsMethod;
  struct {
    K kind;
    M method;
    bool allowed, transient;
  } cases[] = {
      {K::Stab, M::MorgensternPrice, true, false}, {K::Stab, M::Transient, false, false},
      {K::Stab, M::FE_Deform, true, false},        {K::Hydro, M::SteadyState, true, false},
      {K::Hydro, M::Transient, true, true},        {K::Hydro, M::Spencer, false, false},
      {K::Deform, M::Insitu, true, false},         {K::Deform, M::Consolidation, true, true},
      {K::Deform, M::UncoupledConsolidation, true, true},
      {K::Shake, M::Dynamic, true, true},          {K::Shake, M::NonlinearDynamic, true, true},
      {K::Shake, M::Static, true, false},          {K::Thermo, M::ConvectiveHeatTransfer, true, true},
      {K::Thermo, M::SteadyState, true, false},    {K::Solute, M::AdvectionDispersion, true, true},
      {K::Evapo, M::TransientIso, true, true},     {K::None, M::Transient, false, false},
      {K::Hydro, M::Undefined, false, false},
  };
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
