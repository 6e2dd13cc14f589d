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

}  // namespace
}  // namespace v7
