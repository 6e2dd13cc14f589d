#include <gtest/gtest.h>

#include <algorithm>

#include "V7Doc/document/QVDocument.h"
#include "V7Doc/geometry/GroundSurface.h"

using namespace v7;
using namespace v7::Geom;

namespace {

// A square of four points with its four lines and one region, plus a
// dangling fifth point and a surface polyline along the top.
struct Drawing {
  QVDocument doc;
  Geometry& g = doc.Geometry();
  Drawing() {
    doc.DataInit();
    for (Point2D p : {Point2D{0, 0}, Point2D{10, 0}, Point2D{10, 5}, Point2D{0, 5}, Point2D{20, 20}})
      g.Points().AddNew(p);
    for (GID i = 1; i <= 4; ++i) g.Lines().AddNew(i, i % 4 + 1);
    Region r;
    r.pointIDs_ = {1, 2, 3, 4};
    r.cornerPointIDs_ = {1, 3};
    r.nMaterialID_ = 1;
    g.Regions().Add(r);
    g.Surfaces().Add(Surface{L"top", {4, 3}, 1.5, false});
    MATL clay;
    clay.StabModel() = StabMatlModel::MohrCoulomb;
    doc.Materials().Add(clay);
  }
  std::vector<GGID> UsageOf(GID container, GID record) {
    UsageList usage;
    doc.ContainerManager().GetUsageOf(container, usage);
    return record < usage.size() ? usage[record] : std::vector<GGID>{};
  }
};

TEST(GeometryTables, AddNewReusesEqualItems) {
  Drawing d;
  SetCompPrecision(Precision3D(7, 7, 7));
  EXPECT_EQ(d.g.Points().AddNew({10 + 1e-9, 5}), 3u);  // within the tolerance
  EXPECT_EQ(d.g.Points().AddNew({10 + 1e-6, 5}), 6u);
  EXPECT_EQ(d.g.Points().AddNew({qvi::kNoValue, 5}), 0u);
  EXPECT_EQ(d.g.Lines().AddNew(2, 1), 1u);  // either direction
  EXPECT_EQ(d.g.Lines().AddNew(3, 3), 0u);
  EXPECT_EQ(d.g.Lines().AddNew(0, 3), 0u);
}

TEST(GeometryTables, UsageQueries) {
  Drawing d;
  const struct {
    GID container, record;
    std::vector<GGID> users;
  } cases[] = {
      {1, 1, {{2, 1}, {2, 4}, {3, 1}}},          // lines 1 and 4, the region
      {1, 3, {{2, 2}, {2, 3}, {3, 1}, {56, 1}}},  // and the surface
      {1, 5, {}},                                // dangling point
      {2, 1, {{3, 1}}},                          // region edge 1-2
      {2, 4, {{3, 1}}},                          // closing edge 4-1
      {4, 1, {{3, 1}}},                          // material 1
  };
  for (const auto& c : cases) {
    auto got = d.UsageOf(c.container, c.record);
    std::sort(got.begin(), got.end());
    EXPECT_EQ(got, c.users) << c.container << ":" << c.record;
  }
  EXPECT_EQ(d.g.Regions().RegionLineIDs(1), (std::vector<GID>{1, 2, 3, 4}));
  EXPECT_EQ(d.g.GetAllIsPointUsed(), (std::vector<bool>{false, true, true, true, true, false}));
}

TEST(GeometryTables, RenumberingFollowsPoints) {
  Drawing d;
  d.g.Points().Delete({2});  // users are not deleted first
  d.doc.ContainerManager().FullCompact();  // points 3, 4, 5 become 2, 3, 4
  ASSERT_EQ(d.g.Points().Size(), 4u);
  EXPECT_EQ(d.g.Points().At(2).XY(), (Point2D{10, 5}));
  ASSERT_EQ(d.g.Lines().Size(), 2u);
  EXPECT_EQ(d.g.Lines().At(1), (Line{2, 3}));
  EXPECT_EQ(d.g.Lines().At(2), (Line{3, 1}));
  EXPECT_EQ(d.g.Regions().At(1).pointIDs_, (std::vector<GID>{1, 2, 3}));
  EXPECT_EQ(d.g.Regions().At(1).cornerPointIDs_, (std::vector<GID>{1, 2}));
  EXPECT_EQ(d.g.Surfaces().At(1).pointIDs_, (std::vector<GID>{3, 2}));
}

TEST(GeometryTables, CleanUnused) {
  Drawing d;
  d.g.Lines().AddNew(1, 3);  // a diagonal nobody uses
  EXPECT_EQ(d.g.CleanUnusedLines(), 1u);
  EXPECT_EQ(d.g.Lines().Size(), 4u);
  EXPECT_EQ(d.g.CleanUnusedPoints(), 1u);  // point 5
  EXPECT_FALSE(d.g.Points().IsValidID(5));
  EXPECT_TRUE(d.g.Points().IsValidID(4));
}

TEST(GeometryTables, PrecisionFromTheDrawing) {
  Drawing d;
  const Precision3D saved = Precision();
  EXPECT_EQ(d.g.UpdatePrecision(), Precision3D(6, 6, 6));  // reaches 20: 8 - 1 - 1
  EXPECT_EQ(Precision(), Precision3D(6, 6, 6));
  SetCompPrecision(saved);
  d.g.Reset();
  EXPECT_TRUE(d.g.Points().IsEmpty());
  EXPECT_TRUE(d.g.Mesh().IsEmpty());
  EXPECT_EQ(d.g.DrawingPrecision(), Precision3D(7, 7, 7));
}

// The ground-surface tests in their order, each case failing exactly one.
TEST(GroundSurface, TestsInOrder) {
  RegionTable regions;
  auto add = [&](std::vector<GID> pts, std::uint32_t flags, GID material) {
    Region r;
    r.pointIDs_ = std::move(pts);
    r.nFlags_ = flags;
    r.nMaterialID_ = material;
    return regions.Add(r).ID();
  };
  const GID good = add({1, 2, 3}, 0, 1);
  const GID twoPoints = add({1, 2}, 0, 1);
  const GID lineRegion = add({1, 2}, Region::kFlagLineRegion, 1);
  const GID lineRegionThree = add({1, 2, 3}, Region::kFlagLineRegion, 1);
  const GID noMaterial = add({1, 2, 3}, 0, 0);
  const GID weakMaterial = add({1, 2, 3, 4}, 0, 2);
  const GID deleted = add({1, 2, 3}, 0, 1);
  add({1, 2, 3}, 0, 1);  // keeps `deleted` a tombstone rather than trimmed
  regions.Delete({deleted});

  std::vector<GID> asked;
  surface::MaterialLookup lookup;
  lookup.materialOf = [&](GID region, AnalysisKind) { return regions.At(region).nMaterialID_; };
  lookup.hasStabStrength = [&](GID material) {
    asked.push_back(material);
    return material == 1;
  };
  const surface::IsGroundSurfaceRegion seep(regions, AnalysisKind::Hydro, lookup);
  const surface::IsGroundSurfaceRegion stab(regions, AnalysisKind::Stab, lookup);
  const struct {
    GID region;
    bool hydro, stab;
  } cases[] = {{good, true, true},           {twoPoints, false, false},  {lineRegion, false, false},
               {lineRegionThree, false, false}, {noMaterial, false, false}, {weakMaterial, true, false},
               {deleted, false, false},      {0, false, false},          {99, false, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(seep(c.region), c.hydro) << c.region;
    EXPECT_EQ(stab(c.region), c.stab) << c.region;
  }
  // Only regions that reach step 5 of a stability analysis ask the materials.
  EXPECT_EQ(asked, (std::vector<GID>{1, 2}));
}

TEST(GroundSurface, OverTheDocument) {
  Drawing d;
  d.g.Regions().Add(d.g.Regions().At(1)).operator*().nMaterialID_ = 2;
  const surface::IsGroundSurfaceRegion stab(d.doc, AnalysisKind::Stab);
  EXPECT_TRUE(stab(1));
  EXPECT_FALSE(stab(2));
  EXPECT_TRUE(surface::IsGroundSurfaceRegion(d.doc, AnalysisKind::Hydro)(2));
}

}  // namespace
