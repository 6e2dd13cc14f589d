#include "V7Doc/functions/FnDataText.h"

#include <gtest/gtest.h>

#include "QVI/str/Convert.h"

namespace v7 {
namespace {

TEST(FnDataText, ReadsPointsAndRefusesAnythingElse) {
  const struct {
    const wchar_t* text;
    std::vector<FnPoint> points;  // empty with `bad` set: refused
    unsigned bad;                 // the position of the piece refused, 0 for none
  } cases[] = {
      {L"0,0;1,1;2,4", {{0, 0, 0}, {1, 1, 0}, {2, 4, 0}}, 0},
      {L" 1 , -2.5e3 ;\t;\v3,0;", {{1, -2500, 0}, {3, 0, 0}}, 0},
      {L"", {}, 0},
      {L"1,2;3", {}, 2},
      {L"1,2;3,4,5", {}, 2},
      {L"inf,1", {}, 1},
      {L"1,nan", {}, 1},
      {L"1,1e999", {}, 1},
      {L";;x,1", {}, 3},
  };
  for (const auto& c : cases) {
    std::vector<FnPoint> pts = {{9, 9, 9}};
    const gtl::status s = ParseFnDataPoints(c.text, pts);
    if (c.bad) {
      EXPECT_TRUE(s.failed()) << str::to_utf8(c.text);
      EXPECT_EQ(s.args().at(0), str::to_wstring(c.bad)) << str::to_utf8(c.text);
      EXPECT_EQ(pts, (std::vector<FnPoint>{{9, 9, 9}})) << "left as it was";
      continue;
    }
    ASSERT_TRUE(s.succeeded()) << str::to_utf8(c.text) << ": " << s.message_utf8();
    EXPECT_EQ(pts, c.points) << str::to_utf8(c.text);
    std::vector<FnPoint> again;
    ASSERT_TRUE(ParseFnDataPoints(FormatFnDataPoints(pts), again).succeeded());
    EXPECT_EQ(again, pts);
  }
}

}  // namespace
}  // namespace v7
