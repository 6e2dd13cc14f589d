// Shape functions checked against an independent derivation: each element
// form's functions are rebuilt here from the Lagrange/serendipity definitions
// in closed form (Zienkiewicz and Taylor 2000), not by the corner-correction
// recipe of the library, and compared at seeded random points.
#include "V7Doc/geometry/ShapeFunctions.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <string>

using namespace v7::Geom;

namespace {

using Nodes = std::array<std::int32_t, 8>;

struct Form {
  std::string name;
  Nodes nodes;
  // Natural coordinates of each present node position.
  std::array<std::array<double, 2>, 8> at;
};

const std::array<std::array<double, 2>, 8> kQuadAt{
    {{1, 1}, {-1, 1}, {-1, -1}, {1, -1}, {0, 1}, {-1, 0}, {0, -1}, {1, 0}}};
const std::array<std::array<double, 2>, 8> kTriAt{
    {{0, 0}, {1, 0}, {0, 1}, {0, 0}, {0.5, 0}, {0.5, 0.5}, {0, 0.5}, {0, 0}}};
const std::array<std::array<double, 2>, 8> kLineAt{
    {{1, 0}, {-1, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}, {0, 0}}};

const Form kForms[] = {
    {"quad4", {1, 2, 3, 4, 0, 0, 0, 0}, kQuadAt},
    {"quad8", {1, 2, 3, 4, 5, 6, 7, 8}, kQuadAt},
    {"quad5", {1, 2, 3, 4, 5, 0, 0, 0}, kQuadAt},
    {"quad6", {1, 2, 3, 4, 0, 6, 0, 8}, kQuadAt},
    {"quad7", {1, 2, 3, 4, 5, 6, 7, 0}, kQuadAt},
    {"tri3", {1, 2, 3, 0, 0, 0, 0, 0}, kTriAt},
    {"tri6", {1, 2, 3, 0, 4, 5, 6, 0}, kTriAt},
    {"tri4", {1, 2, 3, 0, 0, 5, 0, 0}, kTriAt},
    {"line2", {1, 2, 0, 0, 0, 0, 0, 0}, kLineAt},
    {"line3", {1, 2, 0, 0, 3, 0, 0, 0}, kLineAt},
};

bool Present(const Form& f, int i) { return i < 4 ? f.nodes[i] != 0 : f.nodes[i] > 0; }

// Independent closed forms for the complete elements: 8-node serendipity
// quadrilateral (corner: ¼(1+r ri)(1+s si)(r ri + s si - 1); mid-side:
// ½(1-r²)(1+s si) or ½(1+r ri)(1-s²)), 6-node triangle in area coordinates
// (corner L(2L-1), mid-side 4 Li Lj) and the 3-node line (½r(r±1), 1-r²).
bool Reference(const Form& f, double r, double s, double N[8]) {
  for (int i = 0; i < 8; ++i) N[i] = 0;
  if (f.name == "quad8") {
    for (int i = 0; i < 4; ++i) {
      const double ri = f.at[i][0], si = f.at[i][1];
      N[i] = 0.25 * (1 + r * ri) * (1 + s * si) * (r * ri + s * si - 1);
    }
    N[4] = 0.5 * (1 - r * r) * (1 + s);
    N[5] = 0.5 * (1 - r) * (1 - s * s);
    N[6] = 0.5 * (1 - r * r) * (1 - s);
    N[7] = 0.5 * (1 + r) * (1 - s * s);
  } else if (f.name == "tri6") {
    const double L1 = 1 - r - s, L2 = r, L3 = s;
    N[0] = L1 * (2 * L1 - 1), N[1] = L2 * (2 * L2 - 1), N[2] = L3 * (2 * L3 - 1);
    N[4] = 4 * L1 * L2, N[5] = 4 * L2 * L3, N[6] = 4 * L3 * L1;
  } else if (f.name == "line3") {
    N[0] = 0.5 * r * (r + 1), N[1] = 0.5 * r * (r - 1), N[4] = 1 - r * r;
  } else if (f.name == "quad4") {
    for (int i = 0; i < 4; ++i) N[i] = 0.25 * (1 + r * f.at[i][0]) * (1 + s * f.at[i][1]);
  } else if (f.name == "tri3") {
    N[0] = 1 - r - s, N[1] = r, N[2] = s;
  } else if (f.name == "line2") {
    N[0] = 0.5 * (1 + r), N[1] = 0.5 * (1 - r);
  } else {
    return false;
  }
  return true;
}

std::array<double, 2> RandomPoint(const Form& f, std::mt19937& gen) {
  std::uniform_real_distribution<double> u(-1, 1), t(0, 1);
  if (f.name.starts_with("tri")) {
    double r = t(gen), s = t(gen);
    if (r + s > 1) r = 1 - r, s = 1 - s;
    return {r, s};
  }
  if (f.name.starts_with("line")) return {u(gen), 0};
  return {u(gen), u(gen)};
}

// N_i is 1 at node i and 0 at every other present node (exact to 1e-15).
TEST(ShapeFunctions, NodalDeltaProperty) {
  for (const Form& f : kForms)
    for (int j = 0; j < 8; ++j) {
      if (!Present(f, j)) continue;
      double N[8];
      Shape_Function(N, f.at[j][0], f.at[j][1], f.nodes.data());
      for (int i = 0; i < 8; ++i)
        if (Present(f, i)) {
          EXPECT_NEAR(N[i], i == j ? 1.0 : 0.0, 1e-15) << f.name << " " << i << "@" << j;
        }
    }
}

// At seeded random points of every form, complete or not: values against
// the closed forms (1e-14 absolute; both sides are a few flops on numbers
// of order 1), values summing to one (1e-14); derivatives against central
// differences of Shape_Function with h = 1e-5 (the functions are at most
// quadratic per variable, so the difference is exact up to rounding,
// ~1e-16/h = 1e-11; tolerance 1e-9), each row summing to 0 (1e-14).
TEST(ShapeFunctions, ValuesAndDerivativesAgreeWithIndependentForms) {
  std::mt19937 gen(12345);
  const double h = 1e-5;
  for (const Form& f : kForms) {
    for (int k = 0; k < 200; ++k) {
      const auto [r, s] = RandomPoint(f, gen);
      double N[8], R[8], dN[2][8], Np[2][8], Nm[2][8];
      Shape_Function(N, r, s, f.nodes.data());
      Shape_Derivative(dN, r, s, f.nodes.data());
      Shape_Function(Np[0], r + h, s, f.nodes.data());
      Shape_Function(Nm[0], r - h, s, f.nodes.data());
      Shape_Function(Np[1], r, s + h, f.nodes.data());
      Shape_Function(Nm[1], r, s - h, f.nodes.data());
      const bool closed = Reference(f, r, s, R);
      double sum = 0, sr = 0, ss = 0;
      for (int i = 0; i < 8; ++i) {
        sum += N[i], sr += dN[0][i], ss += dN[1][i];
        EXPECT_TRUE(Present(f, i) || N[i] == 0) << f.name << " node " << i;
        EXPECT_NEAR(N[i], closed ? R[i] : N[i], 1e-14) << f.name << " N" << i + 1;
        for (int d = 0; d < 2; ++d)
          EXPECT_NEAR(dN[d][i], (Np[d][i] - Nm[d][i]) / (2 * h), 1e-9)
              << f.name << " dN" << i + 1 << "/d" << "rs"[d];
      }
      EXPECT_NEAR(sum, 1, 1e-14) << f.name << " at " << r << "," << s;
      EXPECT_NEAR(sr, 0, 1e-14) << f.name;
      EXPECT_NEAR(ss, 0, 1e-14) << f.name;
    }
  }
}

TEST(ShapeFunctions, LocalCoordsAtElemNode) {
  struct Case {
    int node, gauss;
    double r, s;
  } const cases[] = {
      {0, 4, 1.732050808, 1.732050808},  {2, 4, -1.732050808, -1.732050808},
      {5, 4, -1.732050808, 0},           {7, 9, 1.290994449, 0},
      {4, 9, 0, 1.290994449},            {8, 9, 0, 0},
      {8, 4, -7, -7},                    {9, 9, -7, -7},
      {0, 3, -7, -7},                    {-1, 4, -7, -7},
  };
  for (const auto& c : cases) {
    double r = -7, s = -7;
    LocalCoordsAtElemNode(c.node, r, s, c.gauss);
    EXPECT_EQ(r, c.r) << c.node << " " << c.gauss;  // constants as written, bit for bit
    EXPECT_EQ(s, c.s) << c.node << " " << c.gauss;
  }
}

}  // namespace
