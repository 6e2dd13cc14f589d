#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/materials/MATLTable.h"
#include "V7Doc/materials/MatlValidation.h"

namespace v7 {
namespace {

using SM = StabMatlModel;
using PM = MatlPropModel;

TEST(Matl, FnNumSelectsByStabilityModel) {
  enum Target { Strength, Shear, C, Phi, Spare };  // Spare: the slot of no property
  const struct {
    SM model;
    int which;
    Target target;
  } cases[] = {
      {SM::ShearNormalFn, 1, Strength}, {SM::ShearNormalFn, 7, Shear}, {SM::AnisotropicFn, 0, C},
      {SM::AnisotropicFn, -1, Phi},     {SM::MohrCoulomb, 0, Shear},   {SM::MohrCoulomb, 1, Spare},
      {SM::UndrainedPhiZero, 0, Shear}, {SM::None, 0, Spare},          {static_cast<SM>(99), 0, Spare},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "model " << static_cast<int>(c.model) << " which " << c.which);
    MATL m;
    m.StabModel() = c.model;
    GID& slot = m.nFnNum(c.which);
    EXPECT_EQ(slot, 0u);
    slot = 42;
    auto& s = m.Stress();
    EXPECT_EQ(s.nStrengthFnNum() == 42, c.target == Strength);
    EXPECT_EQ(s.nAFnNumShear() == 42, c.target == Shear);
    EXPECT_EQ(s.nAFnNumC() == 42, c.target == C);
    EXPECT_EQ(s.nAFnNumPhi() == 42, c.target == Phi);
    const MATL& cm = m;
    EXPECT_EQ(&cm.nFnNum(c.which), &slot);
    if (c.target == Spare) {
      MATL fresh;
      fresh.StabModel() = c.model;
      EXPECT_EQ(m, fresh);
    }
  }
}

TEST(Matl, DerivedValues) {
  MATL m;
  m.fCorrelationCoef(0) = 0.25;
  m.fCorrelationCoef(1) = -0.5;
  m.fCorrelationCoef(9) = 0.75;  // any other selector is c-phi
  EXPECT_EQ(m.Stress().fCPhiCorr(), 0.75);
  EXPECT_EQ(m.Stress().fPhiPhi2Corr(), -0.5);

  // M = 6 sin(phi) / (3 - sin(phi)): 30 degrees gives 6 * 0.5 / 2.5 = 1.2
  // (Wood 1990, table 7.1: M = 1.2 for phi' = 30).
  const struct {
    double phi, mu;
  } mus[] = {{30, 1.2}, {0, 0}, {90, 3.0}, {20, 6 * std::sin(20 * std::numbers::pi / 180) / (3 - std::sin(20 * std::numbers::pi / 180))}};
  for (const auto& c : mus) {
    m.Stress().fnPhiPrime() = IFn::Constant(c.phi);
    EXPECT_NEAR(m.fMu(), c.mu, 1e-12) << "phi' " << c.phi;
  }

  m.Stress().fnPhiPrime() = IFn();  // no friction angle: no coefficient
  EXPECT_EQ(m.fMu(), qvi::kNoValue);

  // Undrained: the stability friction angle is zero whatever is stored.
  m.Stress().fnStabPhiStored() = IFn::Constant(35);
  m.StabModel() = SM::MohrCoulomb;
  EXPECT_EQ(m.fnStabPhi()(0), 35);
  m.StabModel() = SM::UndrainedPhiZero;
  EXPECT_EQ(m.fnStabPhi().get(), IFn::FnZero().get());
}

TEST(Matl, ClearAndUndoContract) {
  MATLTable table;
  MATL m;
  m.sDescription() = L"Till";
  m.StabModel() = SM::Bilinear;
  m.Stress().fnCohesion() = IFn::Constant(5);
  m.Hydraulic().dHKSat() = 1e-7;
  table.Add(m);
  table.Add(m);
  MATL& second = table.At(2);

  MATL copy;
  copy.UndoAssignment(second);
  EXPECT_EQ(copy.nMatlNum(), 0u);  // the copy does not take the row's ID
  EXPECT_NE(copy.UndoEquality(second), 0);
  EXPECT_FALSE(copy == second);  // equality proper compares the ID too
  copy.Hydraulic().dHKSat() = 2e-7;
  EXPECT_EQ(copy.UndoEquality(second), 0);
  EXPECT_EQ(copy.UndoFreeMemory(), 0);
  EXPECT_TRUE(copy.Stress().fnCohesion().IsUndefined());

  second.Clear();
  EXPECT_EQ(second.nMatlNum(), 2u);
  EXPECT_EQ(second.StabModel(), SM::None);
  EXPECT_TRUE(second.sDescription().empty());
  EXPECT_TRUE(table.IsValidID(2));
  table.Delete({1});
  EXPECT_FALSE(table.IsValidID(1));
  EXPECT_EQ(table[0].nMatlNum(), 0u);
}

struct StabModels : ::testing::Test {
  QVDocument doc;
  GID stab = 0, other = 0;
  void SetUp() override {
    doc.DataInit();
    ANALYSIS a;
    a.DataInit(AnalysisKind::Stab);
    a.name = L"Slope";
    stab = doc.Analyses().Add(a).ID();
    a.name = L"Other";
    other = doc.Analyses().Add(a).ID();
  }
  GID AddMaterial(const wchar_t* name, SM model, PM weight = PM::Constant, PM c = PM::Constant,
                  PM phi = PM::Constant) {
    MATL m;
    m.sDescription() = name;
    m.StabModel() = model;
    m.Stress().StabWeightModel() = weight;
    m.Stress().StabCohesionModel() = c;
    m.Stress().StabPhiModel() = phi;
    return doc.Materials().Add(m).ID();
  }
  GID AddRegion(GID material) {
    Geom::Region r;
    r.pointIDs_ = {1, 2, 3};
    r.nMaterialID_ = material;
    return doc.Geometry().Regions().Add(r).ID();
  }
};

TEST_F(StabModels, AdjustsTheModelsOfUsedMaterialsOnly) {
  const struct {
    const wchar_t* name;
    SM model;
    PM weight, c, phi;
    SM expected;
    unsigned status;  // 0: none
  } cases[] = {
      {L"nostrength", SM::NoStrength, PM::Function, PM::Function, PM::Function, SM::None, 23075},
      {L"spatialweight", SM::MohrCoulomb, PM::SpatialFunction, PM::Constant, PM::Constant,
       SM::MohrCoulombSpatial, 23073},
      {L"fnc", SM::MohrCoulomb, PM::Constant, PM::Function, PM::Constant, SM::MohrCoulombSpatial, 23073},
      {L"fnphi", SM::MohrCoulomb, PM::Constant, PM::Constant, PM::Function, SM::MohrCoulombSpatial, 23073},
      // The friction angle of an undrained material is ignored.
      {L"undrainedphi", SM::UndrainedPhiZero, PM::Constant, PM::Constant, PM::SpatialFunction,
       SM::UndrainedPhiZero, 0},
      {L"undrainedc", SM::UndrainedPhiZero, PM::Constant, PM::Function, PM::Constant,
       SM::MohrCoulombSpatial, 23073},
      {L"plain", SM::MohrCoulomb, PM::Constant, PM::Constant, PM::Constant, SM::MohrCoulomb, 0},
      {L"bilinear", SM::Bilinear, PM::Function, PM::Function, PM::Function, SM::Bilinear, 0},
  };
  for (const auto& c : cases) AddRegion(AddMaterial(c.name, c.model, c.weight, c.c, c.phi));
  const GID unused = AddMaterial(L"unused", SM::NoStrength);

  std::vector<gtl::status> statuses;
  TestStabMaterialModels(doc.Materials(), doc.Analyses(), stab, statuses);
  std::vector<gtl::status> expected;
  GID id = 1;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(doc.Materials().At(id++).StabModel(), c.expected);
    if (c.status == 23075) expected.push_back(gtl::status::warning(23075, c.name, L"Slope"));
    if (c.status == 23073) expected.push_back(gtl::status::warning(23073, c.name));
  }
  EXPECT_EQ(statuses, expected);
  EXPECT_EQ(doc.Materials().At(unused).StabModel(), SM::NoStrength);
  EXPECT_NE(statuses.front().message().find(L"nostrength"), std::wstring::npos);

  // A second run has nothing left to change; an unknown analysis is skipped.
  statuses.clear();
  TestStabMaterialModels(doc.Materials(), doc.Analyses(), stab, statuses);
  TestStabMaterialModels(doc.Materials(), doc.Analyses(), 99, statuses);
  EXPECT_TRUE(statuses.empty());
}

TEST_F(StabModels, ContextsDecideWhichMaterialsAnAnalysisUses) {
  const GID own = AddMaterial(L"own", SM::NoStrength);
  const GID mapped = AddMaterial(L"mapped", SM::NoStrength);
  const GID elsewhere = AddMaterial(L"elsewhere", SM::NoStrength);
  const GID region = AddRegion(own);
  doc.Contexts().ContextFor(stab).SetRegionMaterial(region, mapped);
  doc.Contexts().ContextFor(other).SetRegionMaterial(region, elsewhere);
  EXPECT_EQ(MaterialsUsedByAnalysis(doc.Materials(), stab), std::vector<GID>{mapped});
  EXPECT_EQ(MaterialsUsedByAnalysis(doc.Materials(), other), std::vector<GID>{elsewhere});

  // The context's link to a deleted material is cleared (as every declared
  // reference is): the region's own material applies again.
  doc.Materials().Delete({mapped});
  EXPECT_EQ(MaterialsUsedByAnalysis(doc.Materials(), stab), std::vector<GID>{own});
}

TEST_F(StabModels, SurchargeBelowPiezometricLine) {
  auto& pts = doc.Geometry().Points();
  for (Geom::Point2D p : {Geom::Point2D{0, 10}, {10, 10}, {10, 11}, {0, 11},  // 1-4 surcharge
                          Geom::Point2D{-5, 12}, {15, 12},                    // 5-6 water above
                          Geom::Point2D{-5, 5}, {15, 5},                      // 7-8 water below
                          Geom::Point2D{-5, 6}, {5, 16}})                     // 9-10 rising line
    pts.AddNew(p);
  const struct {
    double weight;
    std::vector<GID> water;
    std::vector<GID> surcharge;
    unsigned status;
  } cases[] = {
      {20, {5, 6}, {1, 2, 3, 4}, 35000},   // heavy, submerged
      {5, {5, 6}, {1, 2, 3, 4}, 35001},    // lighter than water, submerged
      {20, {7, 8}, {1, 2, 3, 4}, 0},       // water well below
      {20, {9, 10}, {1, 2, 3, 4}, 35000},  // water rises above the left corner only
      {20, {5, 6}, {1, 99}, 35002},        // missing point; the rest is above water
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "weight " << c.weight << " status " << c.status);
    StabData& data = doc.StabItems().Get(stab);
    data.vSurcharges_.Clear();
    data.vSurcharges_.Add(SurchargeLoad{0, L"fill", c.weight, c.surcharge, 0, VariationType::Linear});
    data.vPiezometricLines_ = {{L"PL1", c.water, {}, InputDefinition::Define, false}};
    std::vector<gtl::status> statuses;
    TestSurchargeLoadForWTWeight(doc, stab, statuses);
    if (c.status == 0) {
      EXPECT_TRUE(statuses.empty());
      continue;
    }
    ASSERT_FALSE(statuses.empty());
    EXPECT_EQ(statuses.front().id(), c.status);
    EXPECT_EQ(statuses.front().args()[0], L"fill");
    EXPECT_EQ(statuses.front().args()[1], L"Slope");
  }
  std::vector<gtl::status> statuses;
  doc.StabItems().Get(stab).vPiezometricLines_.clear();
  TestSurchargeLoadForWTWeight(doc, stab, statuses);
  doc.Analyses().At(other).kind = AnalysisKind::Hydro;
  // Copied first: adding the other analysis's entry moves the entries.
  const StabData copied = doc.StabItems().Get(stab);
  doc.StabItems().Get(other) = copied;
  TestSurchargeLoadForWTWeight(doc, other, statuses);
  EXPECT_TRUE(statuses.empty());
}

}  // namespace
}  // namespace v7
