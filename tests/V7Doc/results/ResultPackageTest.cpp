#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "QVI/qvi/Markers.h"
#include "V7Doc/results/ResultMessages.h"
#include "V7Doc/results/ResultPackage.h"
#include "V7Doc/results/ResultParams.h"

namespace v7::result {
namespace {

using P = DataParamType;
constexpr std::int32_t kNoStep = v7qvi::analysis::kStepNone;

TEST(ResultPackage, ListsOnlyResultTablesInOrder) {
  const std::vector<std::wstring> names = {
      L"Document.xml",      L"002/001/node.csv",  L"001/003/node.csv",    L"001/time_step.csv",
      L"001/000/gauss.csv", L"001/003/gauss.csv", L"001/010/node.csv",    L"001/abc/node.csv",
      L"000/node.csv",      L"001/003/Node.csv",  L"001/003/node.txt",    L"001/003/x/node.csv",
      L"001/.csv",          L"x01/node.csv",      L"99999999999/node.csv", L"002/history_4.csv",
  };
  const auto got = ListResultEntries(names);
  const std::vector<ResultEntry> want = {
      {1, kNoStep, L"time_step", L"001/time_step.csv"},
      {1, 0, L"gauss", L"001/000/gauss.csv"},
      {1, 3, L"gauss", L"001/003/gauss.csv"},
      {1, 3, L"node", L"001/003/node.csv"},
      {1, 10, L"node", L"001/010/node.csv"},
      {2, kNoStep, L"history_4", L"002/history_4.csv"},
      {2, 1, L"node", L"002/001/node.csv"},
  };
  EXPECT_TRUE(got == want);
}

TEST(ResultPackage, FindsTheTableAsked) {
  const auto entries = ListResultEntries({L"001/time_step.csv", L"001/001/node.csv",
                                          L"001/007/node.csv", L"001/003/node.csv",
                                          L"001/node.csv", L"002/002/slice_3.csv",
                                          L"002/005/slice_3.csv"});
  const struct {
    GID analysis;
    std::wstring table;
    std::int32_t step;
    unsigned id;  // 0: found
    std::wstring entry;
  } cases[] = {
      {1, L"node", 3, 0, L"001/003/node.csv"},
      {1, L"node", kNoStep, 0, L"001/node.csv"},        // the whole-run table first
      {2, L"slice_3", kNoStep, 0, L"002/005/slice_3.csv"},  // else the last step
      {1, L"time_step", kNoStep, 0, L"001/time_step.csv"},
      {1, L"node", 4, result_msg::kNoSuchTable, L""},
      {3, L"node", kNoStep, result_msg::kNoResultFolder, L""},
      {1, L"../node", 1, result_msg::kBadTableName, L""},
  };
  for (const auto& c : cases) {
    ResultEntry e;
    const gtl::status s = FindResultEntry(entries, c.analysis, c.table, c.step, e);
    EXPECT_EQ(s.id(), c.id) << s.message_utf8();
    if (c.id == 0) {
      EXPECT_EQ(e.entry, c.entry);
    }
  }
}

TEST(ResultPackage, ParsesColumnLists) {
  const struct {
    std::wstring text;
    unsigned id;
    std::vector<P> want;
  } cases[] = {
      {L"X,Y,PoreWaterPressure", 0, {P::X, P::Y, P::PoreWaterPressure}},
      {L" x , y ,", 0, {P::X, P::Y}},
      {L"X,Pressure", result_msg::kUnknownQuantity, {}},
      {L"", result_msg::kEmptyColumnList, {}},
  };
  for (const auto& c : cases) {
    std::vector<P> cols = {P::Z};
    const gtl::status s = ParseColumnList(c.text, cols);
    EXPECT_EQ(s.id(), c.id) << s.message_utf8();
    EXPECT_EQ(cols, c.id == 0 ? c.want : std::vector<P>{P::Z});
  }
  std::vector<P> cols;
  EXPECT_NE(ParseColumnList(L"X,Pressure", cols).message_utf8().find("Column 2"), std::string::npos);
}

TEST(ResultPackage, PrintedTableReadsBackTheSame) {
  const std::string csv =
      "Node,Y,PoreWaterPressure\n1,0,58.842\n2,0.1,\n3,1e-300,-1.7976931348623157e308\n";
  const std::vector<P> cols = {P::PoreWaterPressure, P::Node, P::Y};
  ResultTable t;
  ASSERT_TRUE(ReadResultTable(csv, L"a.csv", cols, t).succeeded());
  const std::string text = FormatResultTable(t);
  EXPECT_EQ(text.substr(0, text.find('\n')), "PoreWaterPressure,Node,Y");
  ResultTable back;
  ASSERT_TRUE(ReadResultTable(text, L"b.csv", cols, back).succeeded()) << text;
  EXPECT_TRUE(back == t) << text;
  EXPECT_EQ(back.At(1, 0), qvi::kNoValue);
  // A one-column table keeps its no-value rows (an empty row would be skipped).
  ResultTable one, oneBack;
  ASSERT_TRUE(ReadResultTable(csv, L"a.csv", {P::PoreWaterPressure}, one).succeeded());
  ASSERT_TRUE(ReadResultTable(FormatResultTable(one), L"b.csv", {P::PoreWaterPressure}, oneBack).succeeded());
  EXPECT_TRUE(oneBack == one) << FormatResultTable(one);
  // A row limit keeps the header.
  EXPECT_EQ(FormatResultTable(t, 1), "PoreWaterPressure,Node,Y\n58.842,1,0\n");
}

TEST(ResultParams, SlipAndParticleColumnLists) {
  // The probabilistic slip list is the deterministic one plus the statistics.
  const auto det = params::Slip(false);
  const auto prob = params::Slip(true);
  ASSERT_GT(prob.size(), det.size());
  EXPECT_TRUE(std::equal(det.begin(), det.end(), prob.begin()));
  EXPECT_EQ(std::set<P>(prob.begin(), prob.end()).size(), prob.size());
  EXPECT_EQ(std::find(det.begin(), det.end(), P::SlipFOSMean), det.end());
  // A particle table's name is what ListResultEntries reports for its file.
  const auto t = particle::Table(12);
  const auto listed = ListResultEntries({L"004/" + t.file});
  ASSERT_EQ(listed.size(), 1u);
  EXPECT_EQ(listed[0].table, L"particle_12");
  EXPECT_EQ(listed[0].table, t.name);
}

}  // namespace
}  // namespace v7::result
