#include <gtest/gtest.h>

#include "OC/Schema.h"
#include "OC/xml/XML.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/functions/Func3D.h"
#include "V7Doc/functions/Func3DPointsCsv.h"

namespace v7 {
namespace {

using KrigingSurface = math::fn::Func3DImplAlg<math::fn::interpolate::KrigSurface>;
using LinearSurface = math::fn::Func3DImplAlg<math::fn::interpolate::Linear3D>;

// z = x + 2y at the corners of a square, one point on the diagonal.
Func3D Square() {
  Func3D f;
  f.Points() = {{0, 0, 0}, {10, 0, 10}, {0, 10, 20}, {10, 10, 30}, {4, 4, 12}};
  return f;
}

TEST(Func3D, DefinedPointsSkipAnyMissingCoordinate) {
  Func3D f;
  f.Points() = {{1, 2, qvi::kNoValue}};
  std::vector<FnPoint> defined;
  f.GetDefinedPts(defined);
  EXPECT_TRUE(defined.empty());
  EXPECT_TRUE(qvi::IsNoValue(f(1, 2)));
  EXPECT_NE(dynamic_cast<const math::fn::Func3DMissing*>(f.Fn()), nullptr);
  EXPECT_EQ(f.Fn()->LastError().id(), 33571u);

  f.Points() = {{qvi::kNoValue, 0, 1}, {0, 0, 1}, {1, qvi::kNoValue, 2}, {5, 0, 3}, {0, 5, 4}};
  f.GetDefinedPts(defined);
  ASSERT_EQ(defined.size(), 3u);
  EXPECT_EQ(defined[1], (FnPoint{5, 0, 3}));
  // The stand-by surface gives way once the points allow a real one.
  EXPECT_TRUE(f.UpdatePressureHeadRange().succeeded());
  EXPECT_NE(dynamic_cast<const KrigingSurface*>(f.Fn()), nullptr);
  f.ClearMissingPoints();
  ASSERT_EQ(f.Points().size(), 3u);
  EXPECT_EQ(f.Points()[0], (FnPoint{0, 0, 1}));
  EXPECT_EQ(f.Points()[2], (FnPoint{0, 5, 4}));
}

TEST(Func3D, ChangingTheModelDiscardsTheSurface) {
  Func3D f = Square();
  ASSERT_TRUE(f.UpdatePressureHeadRange().succeeded());
  EXPECT_NE(dynamic_cast<const KrigingSurface*>(f.Fn()), nullptr);
  f.Model(Func3DModel::Linear);
  ASSERT_TRUE(f.UpdatePressureHeadRange().succeeded());
  EXPECT_NE(dynamic_cast<const LinearSurface*>(f.Fn()), nullptr);
  EXPECT_DOUBLE_EQ(f(2, 3), 8.0);  // the plane through the corners
  EXPECT_TRUE(qvi::IsNoValue(f(11, 3)));  // outside the points
  f.Model(Func3DModel::None);
  EXPECT_TRUE(f.UpdatePressureHeadRange().succeeded());
  EXPECT_EQ(f.Fn(), nullptr);
  EXPECT_TRUE(qvi::IsNoValue(f(2, 3)));
  // A copy rebuilds its own surface.
  f.Model(Func3DModel::Linear);
  const Func3D copy = f;
  EXPECT_EQ(copy, f);
  EXPECT_DOUBLE_EQ(copy(2, 3), 8.0);
}

TEST(Func3D, OutputRangeByConstraint) {
  const double kOpen = qvi::kNoValue;
  const struct {
    ERangeConstraint c;
    double userMin, userMax;
    double lo, hi;         // expected RangeOutput
    double at1, at2;       // linear surface values at (2,3) = 8 and (9,9) = 27
  } cases[] = {
      {ERangeConstraint::UserRange, kOpen, 20, -kOpen, 20, 8, 20},  // only the maximum: cut above, keep below
      {ERangeConstraint::UserRange, 10, kOpen, 10, kOpen, 10, 27},
      {ERangeConstraint::UserRange, 25, 9, 9, 25, 9, 25},  // bounds in the wrong order
      {ERangeConstraint::Unbounded, 10, 20, -kOpen, kOpen, 8, 27},
      {ERangeConstraint::DataRange, 10, 20, 0, 30, 8, 27},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.c));
    Func3D f = Square();
    f.Model(Func3DModel::Linear);
    f.SetRangeConstraint(c.c);
    f.SetUserMin(c.userMin);
    f.SetUserMax(c.userMax);
    EXPECT_EQ(f.RangeOutput(), (gtl::range<double>{c.lo, c.hi}));
    EXPECT_DOUBLE_EQ(f(2, 3), c.at1);
    EXPECT_DOUBLE_EQ(f(9, 9), c.at2);
    EXPECT_TRUE(qvi::IsNoValue(f(-1, 0)));  // no value stays no value
  }
  // The data range keeps a kriging surface within what was measured.
  Func3D k;
  k.Points() = {{0, 0, 0}, {1, 0, 10}, {2, 0, 0}, {0, 1, 10}, {1, 1, 0}, {2, 1, 10}};
  for (double x = -3; x <= 5; x += 0.25) {
    const double v = k(x, 3.0);
    EXPECT_GE(v, 0.0);
    EXPECT_LE(v, 10.0);
  }
}

TEST(Func3D, MissingSlotAndClear) {
  Func3D f = Square();
  EXPECT_FALSE(IsMissing(f));
  f.SetDescription(L"");
  EXPECT_FALSE(IsMissing(f));  // points alone keep it
  f.Clear();
  EXPECT_TRUE(IsMissing(f));
  f.SetUserMax(3);
  EXPECT_FALSE(IsMissing(f));
  SetMissing(f);
  EXPECT_TRUE(IsMissing(f));
}

// The bounds stand under crossed names, as a migrated document holds them
// (the rest of the record round-trips with the whole document).
TEST(Func3D, BoundsPersistUnderTheirCrossedNames) {
  Func3D read;
  ASSERT_TRUE(oc::xml::StringRead("<Func3D><SpecifiedMax>1</SpecifiedMax><SpecifiedMin>9</SpecifiedMin>"
                                  "<Model>Kriging</Model></Func3D>",
                                  oc::Store(read))
                  .succeeded());
  EXPECT_EQ(read.UserMin(), 1);
  EXPECT_EQ(read.UserMax(), 9);
  read.SetUserMin(-2.5);
  std::string xml;
  ASSERT_TRUE(oc::xml::StringWrite(oc::Store(read), xml).succeeded());
  EXPECT_NE(xml.find("<SpecifiedMax>-2.5</SpecifiedMax>"), std::string::npos) << xml;
}

TEST(Func3D, ReadsPointsFromDelimitedText) {
  const struct {
    const char* text;
    std::size_t count;  // points read
    unsigned message;   // 0: read
    const char* names;  // in the message
  } cases[] = {
      {"x,y,value\n0,0,1\n1.5,-2,3e2\n", 2, 0, ""},
      {"\xEF\xBB\xBF# survey\r\n\r\n1;2;3\r\n 4 , 5 , 6\r\n7\t8\t9", 3, 0, ""},
      {"0,0,1\n1,1\n", 0, 33577, "Line 2"},
      {"0,0,1\n1,1,2,3\n", 0, 33577, "Line 2"},
      {"h1,h2,h3\n0,0,nan\n", 0, 33577, "Line 2"},
      {"0,0,1\n2,x,3\n", 0, 33577, "\"2,x,3\""},
      {"", 0, 33578, ""},
      {"x,y,z\n# nothing\n", 0, 33578, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    std::vector<FnPoint> pts{{9, 9, 9}};
    const gtl::status s = ReadFunc3DPointsCsv(c.text, pts);
    EXPECT_EQ(s.id(), c.message) << s.message_utf8();
    EXPECT_EQ(pts.size(), c.count);
    EXPECT_NE(s.message_utf8().find(c.names), std::string::npos) << s.message_utf8();
  }
  std::vector<FnPoint> pts;
  ASSERT_TRUE(ReadFunc3DPointsCsv("x,y,v\n1.5,-2,300\n", pts).succeeded());
  EXPECT_EQ(pts[0], (FnPoint{1.5, -2, 300}));
}

}  // namespace
}  // namespace v7
