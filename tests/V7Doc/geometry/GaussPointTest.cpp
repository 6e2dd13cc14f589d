#include "V7Doc/geometry/GaussPoint.h"

#include <gtest/gtest.h>

#include <cmath>

#include "V7Doc/geometry/ShapeFunctions.h"

using namespace v7;
using namespace v7::Geom;

namespace {

// Two quadrilaterals side by side (4 and 9 points), an empty row, a triangle
// (3 points) and a one-point quadrilateral.
struct Fixture {
  Mesh2D mesh;
  Fixture() {
    // 3x2 grid of nodes, x = 0, 1, 2; y = 0, 1.
    for (double y : {0.0, 1.0})
      for (double x : {0.0, 1.0, 2.0}) mesh.AddNode(x, y);
    // node n at (x, y): 1 (0,0) 2 (1,0) 3 (2,0) 4 (0,1) 5 (1,1) 6 (2,1)
    mesh.AddElement({{5, 4, 1, 2, 0, 0, 0, 0}, 1, 4});  // element 1: [0,1]x[0,1]
    mesh.AddElement({{6, 5, 2, 3, 0, 0, 0, 0}, 1, 9});  // element 2: [1,2]x[0,1]
    mesh.AddElement({});                                // element 3: empty row
    mesh.AddElement({{1, 2, 4, 0, 0, 0, 0, 0}, 2, 3});  // element 4: triangle
    mesh.AddElement({{6, 5, 2, 3, 0, 0, 0, 0}, 2, 1});  // element 5: one point
  }
};

TEST(GaussPoint, NumberingRunsWithoutGaps) {
  Fixture f;
  GaussPoint2D gp;
  ASSERT_TRUE(gp.Init(f.mesh.Nodes(), f.mesh.Elements()).succeeded());
  EXPECT_EQ(gp.Size(), 4u + 9 + 3 + 1);
  struct Case {
    std::uint32_t e, k;
    GID id;
  } const cases[] = {
      {1, 1, 1},  {1, 4, 4},   {2, 1, 5},  {2, 9, 13}, {4, 1, 14}, {4, 3, 16}, {5, 1, 17},
      {1, 5, 0},  // runs into element 2's points
      {2, 0, 0},  // index 0 addresses element 1's last point
      {1, 0, 0},  // the placeholder
      {3, 1, 0},  // empty row
      {6, 1, 0},  // beyond the table
      {5, 2, 0},  // beyond the last point
      {0, 1, 0}, {1, 0xFFFFFFFF, 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(gp.GetGaussPointID(c.e, c.k), c.id) << c.e << "," << c.k;
    if (c.id) {
      EXPECT_EQ(gp.GetElemGaussPair(c.id), std::make_pair(c.e, c.k));
    }
  }
  EXPECT_EQ(gp.GetElemGaussPair(0), std::make_pair(0u, 0u));
  EXPECT_EQ(gp.GetElemGaussPair(99), std::make_pair(0u, 0u));
  const Point3D none = gp.GetCoord(18);
  EXPECT_EQ(none.x, qvi::kNoValue);
  EXPECT_EQ(none.z, qvi::kNoValue);
  gp.Clear();
  EXPECT_EQ(gp.Size(), 0u);
  EXPECT_EQ(gp.GetGaussPointID(1, 1), 0u);
}

// Coordinates: on the unit square element the 2x2 points sit at
// 0.5 +- 0.5/sqrt(3), in corner order (corner 1 = node 5 at (1,1)); the 3x3
// centre is the element centre; the triangle's points are at 1/6 and 2/3
// along its legs (hand values, 1e-14).
TEST(GaussPoint, CoordinatesFollowTheElements) {
  Fixture f;
  GaussPoint2D gp;
  ASSERT_TRUE(gp.Init(f.mesh.Nodes(), f.mesh.Elements()).succeeded());
  const double a = 0.5 / std::sqrt(3.0);
  struct Case {
    GID id;
    double x, y;
  } const cases[] = {
      {1, 0.5 + a, 0.5 + a}, {2, 0.5 - a, 0.5 + a}, {3, 0.5 - a, 0.5 - a}, {4, 0.5 + a, 0.5 - a},
      {13, 1.5, 0.5},        {5, 1.5 + 0.5 * std::sqrt(0.6), 0.5 + 0.5 * std::sqrt(0.6)},
      {14, 1.0 / 6, 1.0 / 6}, {15, 2.0 / 3, 1.0 / 6}, {16, 1.0 / 6, 2.0 / 3}, {17, 1.5, 0.5},
  };
  for (const auto& c : cases) {
    const Point3D p = gp.GetCoord(c.id);
    EXPECT_NEAR(p.x, c.x, 1e-14) << c.id;
    EXPECT_NEAR(p.y, c.y, 1e-14) << c.id;
    EXPECT_EQ(p.z, 0);
  }
  // The written node constants extrapolate the 2x2 points back to the nodes:
  // evaluating bilinear functions over the Gauss points at node 0's
  // coordinates gives the corner (1, 1) to the constant's 1e-9.
  double r = 0, s = 0;
  LocalCoordsAtElemNode(0, r, s, 4);
  double N[8];
  const std::int32_t quad[8] = {1, 2, 3, 4, 0, 0, 0, 0};
  Shape_Function(N, r, s, quad);
  double x = 0, y = 0;
  for (GID id = 1; id <= 4; ++id) x += N[id - 1] * gp.GetCoord(id).x, y += N[id - 1] * gp.GetCoord(id).y;
  EXPECT_NEAR(x, 1, 1e-9);
  EXPECT_NEAR(y, 1, 1e-9);
}

TEST(GaussPoint, BadElementsGetNoPointsAndAreReported) {
  Fixture f;
  f.mesh.Elements()[1].nIntegrationOrder_ = 5;  // no such rule
  f.mesh.Elements()[3].anNodes_[2] = 40;        // no such node
  GaussPoint2D gp;
  EXPECT_EQ(gp.Init(f.mesh.Nodes(), f.mesh.Elements()).id(), 34002u);
  EXPECT_EQ(gp.GetGaussPointID(2, 1), 0u);
  EXPECT_EQ(gp.GetGaussPointID(4, 1), 0u);
  EXPECT_EQ(gp.GetGaussPointID(5, 1), 5u);
  std::vector<gtl::status> problems;
  f.mesh.Validate(problems);
  ASSERT_EQ(problems.size(), 2u);
  EXPECT_NE(problems[1].message().find(L"names node 40"), std::wstring::npos) << problems[1].message();
}

TEST(GaussPoint, LineElements) {
  Mesh2D mesh;
  mesh.AddNode(0, 0);
  mesh.AddNode(4, 0);
  mesh.AddNode(2, 0);
  std::vector<ELEM1D> lines = {{{2, 1, 0, 0, 3, 0, 0, 0}, 1, 3}, {{1, 2, 0, 0, 0, 0, 0, 0}, 1, 2}};
  GaussPoint1D gp;
  ASSERT_TRUE(gp.Init(lines, mesh.Nodes()).succeeded());
  EXPECT_EQ(gp.Size(), 5u);
  const double b = std::sqrt(0.6);
  EXPECT_NEAR(gp.GetCoord(1).x, 2 + 2 * b, 1e-14);  // r = +b towards node 1 at x = 4
  EXPECT_NEAR(gp.GetCoord(3).x, 2, 1e-14);
  EXPECT_NEAR(gp.GetCoord(4).x, 2 - 2 / std::sqrt(3.0), 1e-14);
  EXPECT_EQ(gp.GetGaussPointID(2, 2), 5u);
}

}  // namespace
