#include <gtest/gtest.h>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/materials/BC.h"
#include "V7Doc/materials/BoundaryFns.h"

namespace v7 {
namespace {

IFn Make(FnImpl* f) { return IFn(f); }

TEST(BoundaryFns, TypesFollowTheKindTables) {
  const struct {
    IFn fn;
    std::int32_t type;
  } cases[] = {
      {Make(new HydBFnConst(6, 10)), 6},       {Make(new HydBFnFunction(8, 1)), 4},
      {Make(new HydBFnFunction(12, 1)), 0},    {Make(new HydBFnClimate(1, 1)), 9},
      {Make(new HydBFnClimate(0, 1)), 0},      {Make(new AirBFnFunction(5, 1)), 1},
      {Make(new ThermBFnFunction(25, 1)), 3},  {Make(new ThermBFnFunction(26, 1)), 0},
      {Make(new ThermBFnClimate(2, 1)), 4},    {Make(new ContamBFnFunction(17, 1)), 4},
      {Make(new GasBFnFunction(29, 1)), 3},    {Make(new GasBFnClimate(1, 1)), 4},
      {Make(new XDispBFnFunction(41, 1)), 9},  {Make(new XDispBFnFunction(32, 1)), 0},
      {Make(new YDispBFnFunction(32, 1)), 1},  {Make(new XDispBFnNormTanStress(5, 1)), 7},
      {Make(new YDispBFnFluidPressure(0)), 9}, {Make(new BFnPipeSurface(0)), 0},
      {IFn::Constant(3), 0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.fn.as_wstring());
    EXPECT_EQ(BoundaryTypeOf(c.fn), c.type);
  }
  // A displacement function with no function attached: its stored count.
  auto* noFn = new XDispBFnFunction(31, 0);
  IFn held(noFn);
  EXPECT_EQ(noFn->Type(), 0);
  noFn->SetCount(3);
  EXPECT_EQ(noFn->Type(), 8);
}

TEST(BoundaryFns, ThermosyphonAndPipeSurfaceLookUpTheirRecords) {
  ThermosyphonTable syphons;
  syphons.Add({L"flux", 1, 1, 1, 1, 0});
  syphons.Add({L"convective", 1, 1, 1, 1, 2});
  ConvectiveSurfaceTable surfaces;
  surfaces.Add({L"pipe", 10, 4, false});
  surfaces.Add({L"area", 10, 4, true});
  const struct {
    GID set;
    std::int32_t syphon, pipe;
  } cases[] = {{0, 0, 0}, {1, 5, 7}, {2, 6, 8}, {3, 5, 8}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.set);
    EXPECT_EQ(BFnThermoSyphon(c.set).Type(&syphons), c.syphon);
    EXPECT_EQ(BFnPipeSurface(c.set).Type(&surfaces), c.pipe);
  }
  EXPECT_EQ(BFnThermoSyphon(1).Type(nullptr), 5);
}

// Texts per field: read, written back (as given, or with an empty number
// at the kind's default), typed, and the same through a boundary
// condition's slot.
TEST(BoundaryFns, TextRoundTripsPerField) {
  const struct {
    DOFType field;
    const wchar_t* text;
    std::int32_t type;
    const wchar_t* written = nullptr;  // nullptr: as given
  } cases[] = {
      {DOFType::Hydraulic, L"Constant(BType=1,Value=10)", 1},
      {DOFType::Hydraulic, L"Function(BType=8,HydBoundFnNum=3)", 4},
      {DOFType::Thermal, L"Climate(BType=1,ClimateDataSet=2)", 4},
      {DOFType::Thermal, L"Function(BType=24,ThermBoundFnNum=1)", 2},
      {DOFType::XDisp, L"NormTanStress(Norm=100,Tan=5)", 7},
      {DOFType::YDisp, L"FluidPressure(Value=9.807)", 9},
      {DOFType::YDisp, L"Function(BType=40,StressBoundFnNum=1,NumPoints=2)", 7},
      {DOFType::Thermal, L"PipeSurface(ConvSurfDataSet=0)", 0},
      {DOFType::XDisp, L"NormTanStress(Norm= ,Tan=5)", 7, L"NormTanStress(Norm=0,Tan=5)"},
      {DOFType::Hydraulic, L"Constant(BType=1,Value=)", 1, L"Constant(BType=1,Value=0)"},
      {DOFType::Thermal, L"Constant(Value=\t)", 0, L"Constant(BType=0,Value=0)"},
      {DOFType::YDisp, L"FluidPressure(Value=)", 9, L"FluidPressure(Value=0)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    IFn fn;
    ASSERT_TRUE(CreateBoundaryFn(c.field, c.text, fn).succeeded());
    EXPECT_EQ(fn.as_wstring(), c.written ? c.written : c.text);
    EXPECT_EQ(BoundaryTypeOf(fn), c.type);
    EXPECT_EQ(dynamic_cast<const BFnImpl*>(fn.get())->Field(), c.field);
    BC bc, again;
    ASSERT_TRUE(bc.SetSlot(c.field, c.text).succeeded());
    ASSERT_TRUE(again.SetSlot(c.field, bc.DOF(c.field).as_wstring()).succeeded());
    EXPECT_EQ(again.DOF(c.field).as_wstring(), fn.as_wstring());
  }
  // Bad input gives a status naming the attribute, never a crash.
  IFn fn;
  const gtl::status bad = CreateBoundaryFn(DOFType::Hydraulic, L"Constant(BType=x,Value=1)", fn);
  EXPECT_TRUE(bad.failed());
  EXPECT_NE(bad.message().find(L"BType"), std::wstring::npos);
  EXPECT_TRUE(CreateBoundaryFn(DOFType::Hydraulic, L"Nonsense(", fn).failed());
  EXPECT_TRUE(fn.IsUndefined());
}

BC Bc(std::initializer_list<std::pair<DOFType, FnImpl*>> slots) {
  BC bc;
  for (const auto& [d, f] : slots) *bc.MutableDOF(d) = IFn(f);
  return bc;
}

TEST(BC, CategoryAndColourRules) {
  using D = DOFType;
  const std::uint32_t kKeep = 0x123456;
  const struct {
    const char* what;
    BC bc;
    BCategory category;
    std::uint32_t colour;
  } cases[] = {
      {"empty", Bc({}), BCategory::None, kKeep},
      {"head", Bc({{D::Hydraulic, new HydBFnConst(1)}}), BCategory::Primary, 0x0000C0},
      {"flux", Bc({{D::Hydraulic, new HydBFnConst(2)}}), BCategory::Flux, 0xFFC000},
      {"seepage face", Bc({{D::Hydraulic, new HydBFnConst(10)}}), BCategory::UnitFlux, 0xFF0000},
      {"hydraulic 11", Bc({{D::Hydraulic, new HydBFnConst(11)}}), BCategory::None, kKeep},
      {"first slot decides", Bc({{D::Air, new AirBFnConst(0)}, {D::Thermal, new ThermBFnConst(1)}}),
       BCategory::None, kKeep},
      {"thermal 5", Bc({{D::Thermal, new ThermBFnConst(5)}}), BCategory::Flux, 0xFFC000},
      {"thermal climate wins",
       Bc({{D::Hydraulic, new HydBFnConst(1)}, {D::Thermal, new ThermBFnClimate(1, 1)}, {D::XDisp, new XDispBFnConst(1)}}),
       BCategory::Primary, 0x008000},
      {"contaminant 7", Bc({{D::Contaminant, new ContamBFnConst(7)}}), BCategory::Primary, 0x0000C0},
      {"gas 4", Bc({{D::Gas, new GasBFnConst(4)}}), BCategory::UnitFlux, 0xFF0000},
      {"rotation 2", Bc({{D::Rotation, new RotBFnConst(2)}}), BCategory::Flux, 0xFFC000},
      // Displacement slots never decide the category, but do the colour.
      {"norm-tan only", Bc({{D::XDisp, new XDispBFnNormTanStress(1, 0)}}), BCategory::None, 0xFF0000},
      {"head and x force", Bc({{D::Hydraulic, new HydBFnConst(1)}, {D::XDisp, new XDispBFnConst(2)}}),
       BCategory::Primary, 0xFFC000},
      {"y displacement", Bc({{D::YDisp, new YDispBFnConst(1)}}), BCategory::None, 0x0000C0},
      {"x type 0 keeps", Bc({{D::XDisp, new XDispBFnConst(0)}, {D::YDisp, new YDispBFnConst(1)}}),
       BCategory::None, kKeep},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(GetBTypeCategory(c.bc), c.category);
    BC bc = c.bc;
    bc.colour = kKeep;
    SetBCDefaultColour(bc);
    EXPECT_EQ(bc.colour, c.colour);
  }
}

TEST(BC, SlotsTypesAndTombstones) {
  BC bc;
  EXPECT_TRUE(IsMissing(bc));
  const struct {
    std::initializer_list<DOFType> slots;
    BC_Type type;
  } cases[] = {
      {{}, BC_Type::None},
      {{DOFType::Hydraulic}, BC_Type::Hydraulic},
      {{DOFType::Hydraulic, DOFType::Air}, BC_Type::HydraulicAir},
      {{DOFType::Hydraulic, DOFType::Thermal}, BC_Type::HydraulicThermal},
      {{DOFType::XDisp}, BC_Type::Displacement},
      {{DOFType::XDisp, DOFType::YDisp, DOFType::Rotation}, BC_Type::DisplacementRotation},
      {{DOFType::Hydraulic, DOFType::XDisp}, BC_Type::None},
  };
  for (const auto& c : cases) {
    BC b;
    for (DOFType d : c.slots) *b.MutableDOF(d) = IFn::FnOne();
    EXPECT_EQ(b.BCType(), c.type) << static_cast<int>(c.type);
  }
  bc.fnGasBoundary = IFn::FnOne();
  EXPECT_FALSE(IsMissing(bc));
  bc.name = L"x";
  SetMissing(bc);
  EXPECT_TRUE(IsMissing(bc));
  EXPECT_TRUE(bc.SetSlot(static_cast<DOFType>(12), L"1").failed());
}

// A context maps each geometry item to a boundary condition per degree of
// freedom; a map that does not exist is ignored. (Its links follow the
// conditions through deletion and compaction like every declared reference.)
TEST(BC, GeometryUsesBCsThroughTheContext) {
  Associations ctx;
  ctx.SetBC(1, GGID(container::Points, 4), 1);
  ctx.SetBC(1, GGID(container::Lines, 2), 2);
  ctx.SetBC(3, GGID(container::Lines, 2), 3);
  ctx.SetBC(9, GGID(container::Lines, 2), 3);  // no such map: ignored
  EXPECT_EQ(ctx.GetBC(1, GGID(container::Lines, 2)), 2u);
  EXPECT_EQ(ctx.GetBC(3, GGID(container::Lines, 2)), 3u);
  EXPECT_EQ(ctx.GetBC(1, GGID(container::Points, 4)), 1u);
  EXPECT_EQ(ctx.GetBC(9, GGID(container::Lines, 2)), 0u);
}

}  // namespace
}  // namespace v7
