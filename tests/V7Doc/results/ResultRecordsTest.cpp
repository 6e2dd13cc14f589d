#include <gtest/gtest.h>

#include <string>

#include "OC/Schema.h"
#include "OC/xml/XML.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/results/ResultTables.h"

namespace v7 {
namespace {

// Malformed values fail the read and leave the record as it was; values out
// of a member's bounds are kept but warned about, naming the member.
TEST(ResultRecords, BadValuesAreReportedWithTheirPath) {
  const struct {
    const char* xml;
    bool error;
    const char* what;
  } cases[] = {
      {"<ResultContour><NumOfLevels>0</NumOfLevels></ResultContour>", false, "NumOfLevels"},
      {"<ResultContour><MinLevel>abc</MinLevel></ResultContour>", true, "MinLevel"},
      {"<ResultContour><Type>NoSuchQuantity</Type></ResultContour>", false, "Type"},
      {"<ResultGraph><Sources><ID><Record>x</Record></ID></Sources></ResultGraph>", true, "Record"},
  };
  for (const auto& k : cases) {
    ResultContour contour;
    ResultGraph graph;
    const std::string xml = k.xml;
    oc::xml::ReadReport r;
    const gtl::status s = xml.starts_with("<ResultContour") ? oc::xml::StringRead(xml, oc::Store(contour), &r)
                                                            : oc::xml::StringRead(xml, oc::Store(graph), &r);
    EXPECT_EQ(s.failed(), k.error) << xml;
    ASSERT_FALSE(r.messages.empty()) << xml;
    EXPECT_NE(r.messages[0].message_utf8().find(k.what), std::string::npos) << r.messages[0].message_utf8();
    EXPECT_TRUE(!k.error || (contour == ResultContour{} && graph == ResultGraph{})) << xml;
  }
}

TEST(ResultRecords, BuiltFromAnalysisAndViewAndCleared) {
  ANALYSIS a;
  a.DataInit(AnalysisKind::Hydro, AnlsMethod::Transient);
  a.name = L"Reservoir drawdown";
  v7qvi::ViewPreferences view;
  view.bShowMesh = false;
  view.fFontSize = 10.0;
  const EngWindow window{0, -20, 100, 40};
  EngSettings eng;
  eng.SetWindow(window);
  const ResultSet set(4, a, view, eng);
  EXPECT_EQ(set.name_, L"Reservoir drawdown");
  EXPECT_EQ(set.nStep_, v7qvi::analysis::kStepLast);
  EXPECT_FALSE(set.bShowMesh_);
  EXPECT_EQ(set.view_, window);
  EXPECT_EQ(ResultSet(4, a, view).view_, EngWindow{});

  ResultGraph g;
  g.SetName(L"Heads");
  g.SetDepParam(DataParamType::TotalHead);
  g.SetSources({GGID(1, 2)});
  ResultGraph keep = g;
  keep.Clear(true);
  EXPECT_EQ(keep.Name(), L"Heads");
  EXPECT_TRUE(keep.Sources().empty());
  EXPECT_EQ(keep.DepParam(), DataParamType::Undefined);
  g.Clear(false);
  EXPECT_TRUE(g == ResultGraph{});

  ResultContour c;
  EXPECT_EQ(c.Level(0), qvi::kNoValue);
  c.fMinLevel_ = -40;
  c.fLevelIncrement_ = 10;
  EXPECT_EQ(c.Level(9), 50.0);
  EXPECT_DOUBLE_EQ((CutLine{L"", 1, 1, 4, 5}.Length()), 5.0);
  EXPECT_EQ((CutLine{L"", 1, 1, 1, 1}.Length()), qvi::kNoValue);
}

}  // namespace
}  // namespace v7
