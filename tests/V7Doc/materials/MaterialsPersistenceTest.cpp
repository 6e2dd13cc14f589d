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

TEST(MaterialsPersistence, FullyFilledMaterialRoundTrips) {
  MATL m;
  m.sDescription() = L"Silty clay <wet> & \"soft\"";
  m.crColor() = 0x00336699;
  m.ShakeModel() = ShakeMatlModel::EquivalentLinear;
  m.HydroModel() = HydroMatlModel::SatUnsat;
  m.DeformModel() = DeformMatlModel::EffectivePWPCamClay;
  m.StabModel() = StabMatlModel::MohrCoulombSpatial;
  m.ThermoModel() = ThermoMatlModel::SimplifiedThermal;
  m.EvapoModel() = EvapoMatlModel::SimplifiedThermal;
  m.external().SetAssembly(L"Models.dll");
  m.external().SetName(L"Hardening");
  m.external().SetFields(L"a=1;b=2");
  m.Hydraulic().nHKFnNum() = 3;
  m.Hydraulic().dHKSat() = 1.0 / 3.0 * 1e-7;
  m.Hydraulic().UseInitPWP() = true;
  m.Hydraulic().dInitPWP() = -12.5;
  m.Air().nAirKFnNum() = 1;
  m.Air().UseInitAirPressure() = true;
  m.Thermal().nTKTempFnNum() = 2;
  m.Thermal().dTKConst() = 1.7;
  m.Thermal().UseInitTemp() = true;
  m.Contam().fLongitudinal() = 0.5;
  m.Contam().UseInitC() = true;
  m.Gas().effReactionRateCoef() = 0.01;
  m.Gas().UseInitGasC() = false;
  auto& s = m.Stress();
  s.StabWeightModel() = MatlPropModel::SpatialFunction;
  s.StabPhiModel() = MatlPropModel::Function;
  s.UnitWeightAboveWT() = true;
  s.nWeight3DFnNum() = 2;
  s.nRecModulusFnNum() = 9;
  s.fnWeight() = 18.5;
  s.UseSteadyStateStrength() = -1;
  s.fnCohesion() = IFn::Constant(12);
  s.fnStabPhiStored() = IFn::Constant(31.5);
  s.fnTauSigmaRatio() = IFn::Constant(0.25);
  s.fPoisson() = 0.3;
  s.min() = 1e-300;
  s.fMFS_N() = 4.0 / 7.0;
  std::string xml;
  const MATL back = RoundTrip(m, &xml);
  EXPECT_EQ(back.UndoEquality(m), 1);
  EXPECT_EQ(back.Stress().fnStabPhiStored()(0), 31.5);
  // The crossed flag names stand where they belong, and the material model
  // names and sub-model names are written as names.
  EXPECT_NE(xml.find("<Contaminant>"), std::string::npos);
  EXPECT_NE(xml.find("<UseInitGasC>true</UseInitGasC>"), std::string::npos) << xml;
  EXPECT_NE(xml.find("<StabModel>MohrCoulombSpatial</StabModel>"), std::string::npos);
  EXPECT_NE(xml.find("<StabWeightModel>Spatial Function</StabWeightModel>"), std::string::npos);
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
  // The thermal climate slot comes back as a thermal kind (type 4, not 9).
  EXPECT_EQ(BoundaryTypeOf(back.fnThermBoundary), 4);
}

TEST(MaterialsPersistence, ClimateSetAndSurfacesRoundTrip) {
  CLIMATE_INFO c;
  c.DataInit();
  c.fLat = 52.1;
  c.eDist = ClimateDist::SlopeAvgDist;
  c.eEnergyMethod = ClimateEnergyMethod::NetSolarEnergy;
  c.Mod.nMaxTemp = -2;
  for (int d = 1; d <= 4; ++d) {
    CLIMATEENTRY e;
    e.nDay = d;
    e.fmaxT = 25.5 - d;
    e.fminT = 8.25;
    e.fPrecip = d == 2 ? 12.0 : 0.0;
    e.dStartPrecip = 0.25;
    e.dEndPrecip = 0.75;
    c.hClimateMem.push_back(e);
  }
  std::string xml;
  const CLIMATE_INFO back = RoundTrip(c, &xml);
  EXPECT_EQ(back, c);
  EXPECT_EQ(back.nDayCnt(), 4);
  EXPECT_NE(xml.find("<Distribution>SlopeAvgDist</Distribution>"), std::string::npos);
  EXPECT_NE(xml.find("<ClimateEntries>"), std::string::npos);

  CLIMATE_INFO slope;
  ASSERT_TRUE(oc::xml::StringRead("<CLIMATE_INFO><Distribution>SlopeAvgDist</Distribution></CLIMATE_INFO>", oc::Store(slope))
                  .succeeded());
  EXPECT_EQ(static_cast<int>(slope.eDist), 3);

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
