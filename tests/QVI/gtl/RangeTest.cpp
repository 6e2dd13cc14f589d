#include <gtest/gtest.h>

#include <vector>

#include "QVI/gtl/range.h"
#include "QVI/gtl/sequence_iterator.h"

namespace {

TEST(Range, ContainsAndTruncateIncludeBothEnds) {
  const gtl::range<double> r{-1.0, 2.0};
  struct Case {
    double v, truncated;
    bool inside;
  } cases[] = {{-2, -1, false}, {-1, -1, true}, {0.5, 0.5, true}, {2, 2, true}, {3, 2, false}};
  for (const auto& c : cases) {
    EXPECT_EQ(r.contains(c.v), c.inside) << c.v;
    EXPECT_EQ(r.truncate(c.v), c.truncated) << c.v;
  }
  EXPECT_TRUE(r.valid());
  EXPECT_FALSE((gtl::range<double>{2, 1}.valid()));
  EXPECT_EQ(r.extended(5.0), (gtl::range<double>{-1, 5}));
}

struct Squares {
  int n;
};
struct SquareStep {
  static int at(const Squares&, int i) { return i * i; }
};

TEST(SequenceIterator, WalksTheIndexedValues) {
  const Squares s{4};
  std::vector<int> got;
  for (gtl::sequence_iterator<Squares, SquareStep> it(&s, 0), end(&s, s.n); it != end; ++it)
    got.push_back(*it);
  EXPECT_EQ(got, (std::vector<int>{0, 1, 4, 9}));
}

}  // namespace
