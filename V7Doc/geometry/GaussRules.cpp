#include "V7Doc/geometry/GaussRules.h"

#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace v7::Geom {
namespace {

using Rule = std::vector<GaussRulePoint>;

// Gauss-Legendre nodes and weights on [-1, 1], + end first, its mirror
// next, the centre last.
std::vector<std::pair<double, double>> Legendre(int n) {
  switch (n) {
    case 1: return {{0.0, 2.0}};
    case 2: {
      const double a = 1 / std::sqrt(3.0);
      return {{a, 1.0}, {-a, 1.0}};
    }
    case 3: {
      const double b = std::sqrt(0.6);
      return {{b, 5.0 / 9}, {-b, 5.0 / 9}, {0.0, 8.0 / 9}};
    }
    case 4: {
      // x = sqrt(3/7 -+ 2/7 sqrt(6/5)), w = (18 +- sqrt(30)) / 36.
      const double inner = std::sqrt(3.0 / 7 - 2.0 / 7 * std::sqrt(1.2));
      const double outer = std::sqrt(3.0 / 7 + 2.0 / 7 * std::sqrt(1.2));
      const double wi = (18 + std::sqrt(30.0)) / 36, wo = (18 - std::sqrt(30.0)) / 36;
      return {{outer, wo}, {-outer, wo}, {inner, wi}, {-inner, wi}};
    }
    default: return {};
  }
}

Rule Line(int n) {
  Rule rule;
  for (const auto& [x, w] : Legendre(n)) rule.push_back({x, 0.0, w});
  return rule;
}

Rule Quad(int n) {
  switch (n) {
    case 1: return {{0, 0, 4}};
    case 4: {
      const double a = 1 / std::sqrt(3.0);
      return {{a, a, 1}, {-a, a, 1}, {-a, -a, 1}, {a, -a, 1}};
    }
    case 9: {
      const double b = std::sqrt(0.6), c = 5.0 / 9, m = 8.0 / 9;
      return {{b, b, c * c},  {-b, b, c * c},  {-b, -b, c * c}, {b, -b, c * c}, {0, b, m * c},
              {-b, 0, c * m}, {0, -b, m * c}, {b, 0, c * m},    {0, 0, m * m}};
    }
    case 16: {
      // Rows from s = +1 down, each from r = +1 down.
      auto g = Legendre(4);
      std::array<std::pair<double, double>, 4> sorted = {g[0], g[2], g[3], g[1]};
      Rule rule;
      for (const auto& [s, ws] : sorted)
        for (const auto& [r, wr] : sorted) rule.push_back({r, s, wr * ws});
      return rule;
    }
    default: return {};
  }
}

// The three points of a symmetric orbit (a, a, 1 - 2a) in barycentric
// coordinates, near corners 1, 2, 3 when a is small, near mid-sides 2-3,
// 3-1, 1-2 when a is near 1/2. `w` is the weight on the unit triangle
// (Dunavant's weights sum to 1; the reference triangle has area 1/2).
void Orbit(Rule& rule, double a, double w, bool nearCorners) {
  const double b = 1 - 2 * a;
  if (nearCorners) {
    // L1 large at corner 1 (r = s = a), L2 at corner 2, L3 at corner 3.
    rule.push_back({a, a, w / 2});
    rule.push_back({b, a, w / 2});
    rule.push_back({a, b, w / 2});
  } else {
    // L3 small near mid-side 1-2, L1 small near 2-3, L2 small near 3-1.
    rule.push_back({a, b, w / 2});
    rule.push_back({a, a, w / 2});
    rule.push_back({b, a, w / 2});
  }
}

Rule Triangle(int n) {
  Rule rule;
  switch (n) {
    case 1: return {{1.0 / 3, 1.0 / 3, 0.5}};
    case 3: Orbit(rule, 1.0 / 6, 1.0 / 3, true); return rule;
    case 4:
      Orbit(rule, 0.2, 25.0 / 48, true);
      rule.push_back({1.0 / 3, 1.0 / 3, -27.0 / 96});
      return rule;
    case 6:
      // Dunavant (1985), degree 4, as published (15 digits).
      Orbit(rule, 0.091576213509771, 0.109951743655322, true);
      Orbit(rule, 0.445948490915965, 0.223381589678011, false);
      return rule;
    case 7: {
      // Radon (1948): a = (6 -+ sqrt 15) / 21, w = (155 -+ sqrt 15) / 1200
      // on the unit-area triangle, 9/40 at the centroid.
      const double q = std::sqrt(15.0);
      Orbit(rule, (6 - q) / 21, (155 - q) / 1200, true);
      Orbit(rule, (6 + q) / 21, (155 + q) / 1200, false);
      rule.push_back({1.0 / 3, 1.0 / 3, 9.0 / 80});
      return rule;
    }
    default: return {};
  }
}

}  // namespace

const std::vector<GaussRulePoint>& GaussRule(int corners, int order) {
  static const std::map<std::pair<int, int>, Rule> rules = [] {
    std::map<std::pair<int, int>, Rule> m;
    for (int n : {1, 2, 3, 4}) m[{2, n}] = Line(n);
    for (int n : {1, 4, 9, 16}) m[{4, n}] = Quad(n);
    for (int n : {1, 3, 4, 6, 7}) m[{3, n}] = Triangle(n);
    return m;
  }();
  static const Rule none;
  const auto it = rules.find({corners, order});
  return it == rules.end() ? none : it->second;
}

std::vector<int> GaussRuleOrders(int corners) {
  std::vector<int> orders;
  for (int n = 1; n <= 16; ++n)
    if (!GaussRule(corners, n).empty()) orders.push_back(n);
  return orders;
}

}  // namespace v7::Geom
