#include <gtest/gtest.h>

#include "OC/xml/XML.h"
#include "V7Doc/materials/BoundaryFns.h"
#include "V7Doc/materials/MaterialsSchema.h"

namespace v7 {
namespace {

template <class T>
T RoundTrip(T& rec, std::string* xmlOut = nullptr) {
  std::string xml;
  EXPECT_TRUE(oc::xml::StringWrite(oc::Store(rec), xml).succeeded());
  T back;
  const gtl::status s = oc::xml::StringRead(xml, oc::Store(back));
  EXPECT_TRUE(s.succeeded()) << s.message_utf8() << "\n" << xml;
  if (xmlOut) *xmlOut = xml;
  return back;
}

TEST(MaterialsPersistence, FilledMaterialRoundTrips) {
  MATL m;
  m.sDescription() = L"Silty clay <wet> & \"soft\"";
  m.DeformModel() = DeformMatlModel::EffectivePWPCamClay;
  m.StabModel() = StabMatlModel::MohrCoulombSpatial;
  m.external().SetFields(L"a=1;b=2");
  m.Hydraulic().dHKSat() = 1.0 / 3.0 * 1e-7;
  m.Thermal().UseInitTemp() = true;
  m.Contam().UseInitC() = true;
  m.Gas().UseInitGasC() = false;
  m.Stress().StabWeightModel() = MatlPropModel::SpatialFunction;
  m.Stress().UseSteadyStateStrength() = -1;
  m.Stress().fnStabPhiStored() = IFn::Constant(31.5);
  m.Stress().min() = 1e-300;
  std::string xml;
  const MATL back = RoundTrip(m, &xml);
  EXPECT_EQ(back.UndoEquality(m), 1);
  EXPECT_EQ(back.Stress().fnStabPhiStored()(0), 31.5);
  // Crossed flag names stand where they belong; models are written as names.
  for (const char* part : {"<Contaminant>", "<UseInitGasC>true</UseInitGasC>",
                           "<StabModel>MohrCoulombSpatial</StabModel>",
                           "<StabWeightModel>Spatial Function</StabWeightModel>"})
    EXPECT_NE(xml.find(part), std::string::npos) << part;
}

TEST(MaterialsPersistence, CrossedFlagsAndLegacyMemberRead) {
  const struct {
    const char* xml;
    bool contam, gas, thermal;
  } cases[] = {
      {"<MATL><Contaminant><UseInitGasC>true</UseInitGasC></Contaminant></MATL>", true, false, false},
      {"<MATL><Gas><UseInitTemp>true</UseInitTemp></Gas></MATL>", false, true, false},
      {"<MATL><Thermal><UseInitTemp>true</UseInitTemp></Thermal></MATL>", false, false, true},
      {"<MATL><StressStrain><UseUnitWeightOfWater>true</UseUnitWeightOfWater></StressStrain></MATL>",
       false, false, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.xml);
    MATL m;
    ASSERT_TRUE(oc::xml::StringRead(c.xml, oc::Store(m)).succeeded());
    EXPECT_EQ(m.Contam().UseInitC(), c.contam);
    EXPECT_EQ(m.Gas().UseInitGasC(), c.gas);
    EXPECT_EQ(m.Thermal().UseInitTemp(), c.thermal);
    // The legacy member is read but never written back.
    std::string xml;
    ASSERT_TRUE(oc::xml::StringWrite(oc::Store(m), xml).succeeded());
    EXPECT_EQ(xml.find("UseUnitWeightOfWater"), std::string::npos);
  }
  MATL legacy;
  ASSERT_TRUE(oc::xml::StringRead(cases[3].xml, oc::Store(legacy)).succeeded());
  EXPECT_TRUE(legacy.Stress().bUseUnitWeightOfWaterForNoStrengthMatl_REMOVED_IN_V71);

  // A function text that builds nothing is kept, not lost.
  MATL odd;
  ASSERT_TRUE(oc::xml::StringRead("<MATL><StressStrain><Phi>NoSuchKind(a=1)</Phi></StressStrain></MATL>",
                                  oc::Store(odd))
                  .succeeded());
  EXPECT_EQ(odd.Stress().fnPhi().as_wstring(), L"NoSuchKind(a=1)");
  EXPECT_EQ(RoundTrip(odd).Stress().fnPhi().as_wstring(), L"NoSuchKind(a=1)");
}

TEST(MaterialsPersistence, BoundaryConditionRoundTrips) {
  BC bc;
  bc.name = L"Ponded crest";
  bc.colour = 0xFF0000;
  bc.fnHydBoundary = IFn(new HydBFnFunction(8, 4));
  bc.fnAirBoundary = IFn(new AirBFnConst(1, 0));
  bc.fnThermBoundary = IFn(new ThermBFnClimate(1, 2));
  bc.fnContamBoundary = IFn(new ContamBFnConst(2, 0.125));
  bc.fnGasBoundary = IFn(new GasBFnClimate(1, 1));
  bc.fnXDispBoundary = IFn(new XDispBFnNormTanStress(100, 5));
  bc.fnYDispBoundary = IFn(new YDispBFnFluidPressure(9.807));
  bc.fnRotBoundary = IFn(new RotBFnConst(1, 0));
  const BC back = RoundTrip(bc);
  EXPECT_EQ(back, bc);
  for (int d = 1; d <= kNumDOF; ++d) {
    const auto slot = static_cast<DOFType>(d);
    EXPECT_EQ(BoundaryTypeOf(back.DOF(slot)), BoundaryTypeOf(bc.DOF(slot))) << d;
  }
  EXPECT_EQ(BoundaryTypeOf(back.fnThermBoundary), 4);  // thermal kind, not hydraulic 9
}

TEST(MaterialsPersistence, ClimateSetAndSurfacesRoundTrip) {
  CLIMATE_INFO c;
  c.DataInit();
  c.eDist = ClimateDist::SlopeAvgDist;
  c.Mod.nMaxTemp = -2;
  for (int d = 1; d <= 2; ++d) c.hClimateMem.push_back({.nDay = d, .fmaxT = 25.5 - d, .dEndPrecip = 0.75});
  std::string xml;
  EXPECT_EQ(RoundTrip(c, &xml), c);
  EXPECT_NE(xml.find("<Distribution>SlopeAvgDist</Distribution>"), std::string::npos);
  THERMOSYPHON_INFO t{L"ts", 6, 2.5, 10, 1, 1};
  EXPECT_EQ(RoundTrip(t), t);
  PIPESURF_INFO p{L"culvert", 25, 4, true};
  EXPECT_EQ(RoundTrip(p), p);
  Associations a;
  a.nAnalysisID_ = 3;
  a.SetRegionMaterial(2, 5);
  a.SetBC(6, GGID(2, 7), 1);
  a.SetBC(1, GGID(1, 4), 2);
  EXPECT_EQ(RoundTrip(a), a);
}

}  // namespace
}  // namespace v7
