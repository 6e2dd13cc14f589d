// The integration rules: which exist, that their weights measure the
// reference element, and that each integrates every polynomial of its degree
// exactly (exact integrals worked out by hand: x^i over [-1, 1] is 2/(i+1)
// for even i, 0 for odd; r^i s^j over the unit right triangle is
// i! j! / (i + j + 2)!).
#include "V7Doc/geometry/GaussRules.h"

#include <gtest/gtest.h>

#include <cmath>

#include "V7Doc/geometry/GaussPoint.h"

using namespace v7;
using namespace v7::Geom;

namespace {

double Factorial(int n) { return n <= 1 ? 1.0 : n * Factorial(n - 1); }
double LineIntegral(int i) { return i % 2 ? 0.0 : 2.0 / (i + 1); }

struct RuleCase {
  int corners, order, degree;  // degree: total (triangles) or per coordinate
  double area;
};
// Lines and quadrilaterals: Gauss-Legendre, degree 2n - 1 per coordinate;
// triangles: Dunavant (1985) table of degrees.
const RuleCase kRules[] = {
    {2, 1, 1, 2},  {2, 2, 3, 2},  {2, 3, 5, 2},   {2, 4, 7, 2},   {4, 1, 1, 4},
    {4, 4, 3, 4},  {4, 9, 5, 4},  {4, 16, 7, 4},  {3, 1, 1, 0.5}, {3, 3, 2, 0.5},
    {3, 4, 3, 0.5}, {3, 6, 4, 0.5}, {3, 7, 5, 0.5},
};

TEST(GaussRules, TheStandardRulesAndNoOthers) {
  EXPECT_EQ(GaussRuleOrders(2), (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(GaussRuleOrders(3), (std::vector<int>{1, 3, 4, 6, 7}));
  EXPECT_EQ(GaussRuleOrders(4), (std::vector<int>{1, 4, 9, 16}));
  EXPECT_TRUE(GaussRuleOrders(5).empty());
  for (const RuleCase& c : kRules) {
    EXPECT_EQ(static_cast<int>(GaussRule(c.corners, c.order).size()), c.order);
    EXPECT_TRUE(IsKnownIntegrationOrder(c.corners, c.order));
  }
  for (auto [corners, order] : {std::pair{3, 2}, {3, 5}, {3, 9}, {4, 2}, {4, 8}, {2, 0}, {2, 5}, {1, 1}})
    EXPECT_FALSE(IsKnownIntegrationOrder(corners, order)) << corners << " " << order;
}

// Weights sum to the reference measure; points lie inside the element; each
// rule is exact for its degree (relative 1e-13: the 6-point triangle's
// constants are published to 15 digits), and no better than it claims: one
// degree more is not exact for every monomial (so a wrong table cannot pass
// by being a higher rule).
TEST(GaussRules, WeightsAndExactness) {
  for (const RuleCase& c : kRules) {
    const auto& rule = GaussRule(c.corners, c.order);
    double sum = 0;
    for (const GaussRulePoint& p : rule) {
      sum += p.w;
      if (c.corners == 3) {
        EXPECT_TRUE(p.r > 0 && p.s > 0 && p.r + p.s < 1);
      } else {
        EXPECT_TRUE(std::abs(p.r) < 1 && std::abs(p.s) < 1);
      }
    }
    EXPECT_NEAR(sum, c.area, 1e-14) << c.corners << "/" << c.order;
    double worst_above = 0;
    for (int i = 0; i <= c.degree + 1; ++i)
      for (int j = 0; j <= (c.corners == 2 ? 0 : c.degree + 1); ++j) {
        const int degree = c.corners == 3 ? i + j : std::max(i, j);
        if (degree > c.degree + 1) continue;
        double q = 0;
        for (const GaussRulePoint& p : rule) q += p.w * std::pow(p.r, i) * std::pow(p.s, j);
        const double exact = c.corners == 3 ? Factorial(i) * Factorial(j) / Factorial(i + j + 2)
                             : c.corners == 2 ? LineIntegral(i)
                                              : LineIntegral(i) * LineIntegral(j);
        if (degree == c.degree + 1) {
          worst_above = std::max(worst_above, std::abs(q - exact));
          continue;
        }
        EXPECT_NEAR(q, exact, 1e-13 * std::max(1.0, std::abs(exact)))
            << c.corners << " corners, " << c.order << " points, r^" << i << " s^" << j;
      }
    EXPECT_GT(worst_above, 1e-6) << c.corners << " corners, " << c.order << " points";
  }
}

// Elements with the newer rules get all their points, and the elements after
// them keep their numbers in sequence.
TEST(GaussRules, EveryRuleNumbersItsElement) {
  Mesh2D mesh;
  for (double y : {0.0, 1.0})
    for (double x : {0.0, 1.0}) mesh.AddNode(x, y);
  // node 1 (0,0) 2 (1,0) 3 (0,1) 4 (1,1)
  mesh.AddElement({{1, 2, 3, 0, 0, 0, 0, 0}, 1, 6});   // triangle, 6 points
  mesh.AddElement({{4, 3, 1, 2, 0, 0, 0, 0}, 1, 16});  // quadrilateral, 16 points
  mesh.AddElement({{1, 2, 3, 0, 0, 0, 0, 0}, 1, 7});   // triangle, 7 points
  mesh.AddElement({{1, 2, 3, 0, 0, 0, 0, 0}, 1, 4});   // triangle, 4 points
  GaussPoint2D gp;
  ASSERT_TRUE(gp.Init(mesh.Nodes(), mesh.Elements()).succeeded());
  EXPECT_EQ(gp.Size(), 6u + 16 + 7 + 4);
  EXPECT_EQ(gp.GetGaussPointID(2, 1), 7u);
  EXPECT_EQ(gp.GetGaussPointID(3, 7), 29u);
  EXPECT_EQ(gp.GetGaussPointID(4, 4), 33u);
  // On the unit right triangle the global coordinates are the natural ones.
  const auto& six = GaussRule(3, 6);
  for (std::uint32_t k = 1; k <= 6; ++k) {
    EXPECT_NEAR(gp.GetCoord(k).x, six[k - 1].r, 1e-15);
    EXPECT_NEAR(gp.GetCoord(k).y, six[k - 1].s, 1e-15);
  }

  std::vector<ELEM1D> lines = {{{1, 2, 0, 0, 0, 0, 0, 0}, 1, 4}, {{1, 2, 0, 0, 0, 0, 0, 0}, 1, 5}};
  GaussPoint1D gp1;
  const gtl::status s = gp1.Init(lines, mesh.Nodes());
  EXPECT_EQ(s.id(), 34002u);  // five points on a line: no such rule, said so
  EXPECT_NE(s.message().find(L"Line element 2"), std::wstring::npos) << s.message_utf8();
  EXPECT_EQ(gp1.Size(), 4u);
}

}  // namespace
