#include <gtest/gtest.h>

#include "QVI/qvi/Markers.h"
#include "V7Doc/analysis/ResultInfo.h"
#include "V7Doc/analysis/ResultPath.h"
#include "V7Doc/analysis/TIMEINCSTRUCT.h"

namespace {

using namespace v7::v7qvi::analysis;
using v7::TIMEINC;

ResultInfo Info(std::initializer_list<std::pair<int, int>> stepsAndSave) {
  ResultInfo info;
  ResultInfo::StepList steps;
  for (auto [n, save] : stepsAndSave) steps.push_back({n, TIMEINC{1, 1.0 * n, save}});
  info.SetSteps(steps);
  return info;
}

TEST(ResultInfo, FindStepAndFindSavedStep) {
  const ResultInfo empty;
  EXPECT_EQ(empty.FindStep(0), empty.end());

  const ResultInfo info = Info({{5, 1}, {1, 1}, {3, 0}});
  ASSERT_EQ(info.Steps().size(), 3u);
  EXPECT_EQ(info.Steps().front().first, 1) << "sorted by step number";
  for (int missing : {0, 2, 4, 6, -2, kStepLast}) EXPECT_EQ(info.FindStep(missing), info.end());
  ASSERT_NE(info.FindStep(3), info.end());
  EXPECT_EQ(info.FindStep(3)->second.fElapsed, 3.0);
  EXPECT_EQ(info.FindSavedStep(3), info.end()) << "found but not saved";
  EXPECT_NE(info.FindSavedStep(5), info.end());

  ResultInfo dup = Info({{2, 0}, {2, 1}});
  EXPECT_EQ(dup.Steps().size(), 1u);
  EXPECT_EQ(dup.FindStep(2)->second.nSave, 1) << "of equal numbers the last wins";
  dup.AddStep(1, {});
  dup.AddStep(2, {0, 9, 0});
  EXPECT_EQ(dup.Steps().size(), 2u);
  EXPECT_EQ(dup.FindStep(2)->second.fElapsed, 9);
}

TEST(ResultPath, EmptinessAndLocalFiles) {
  ResultPath p;
  EXPECT_FALSE(p.IsLocalFile());
  p.SetFile(L"C:/data/heads.csv");
  EXPECT_TRUE(p.IsLocalFile());
  p.SetPath(L"proj", L"");
  EXPECT_FALSE(p.IsLocalFile());
  p.Clear();
  EXPECT_TRUE(p.IsEmpty());
}

TEST(ResultPath, DelimitedTextRoundTrips) {
  struct { const wchar_t* text; ResultPath expected; const wchar_t* written; } cases[] = {
      {L"a;b;c;(last)", {L"a", L"b", L"c", kStepLast}, L"a;b;c;(last)"},
      {L"a;b;c;(all)", {L"a", L"b", L"c", kStepAll}, L"a;b;c;(all)"},
      {L"a;b;c;12", {L"a", L"b", L"c", 12}, L"a;b;c;12"},
      {L"a;b;c; -7 ", {L"a", L"b", L"c", -7}, L"a;b;c;-7"},
      {L";;file.csv;0", {L"", L"", L"file.csv", 0}, L";;file.csv;0"},
      {L"\"x;y\";\"say \"\"hi\"\"\";c;1", {L"x;y", L"say \"hi\"", L"c", 1},
       L"\"x;y\";\"say \"\"hi\"\"\";c;1"},
      {L"a;b", {L"a", L"b", L"", kStepNone}, L"a;b;;2147483647"},
      {L"a;b;c;", {L"a", L"b", L"c", kStepNone}, L"a;b;c;2147483647"},
      {L"", {}, L";;;2147483647"},
      {L" lead;b;c;1", {L" lead", L"b", L"c", 1}, L"\" lead\";b;c;1"},
  };
  for (const auto& c : cases) {
    ResultPath p(L"old", L"old", L"old", 5);
    const auto s = p.SetDelimPath(c.text);
    ASSERT_TRUE(s.succeeded()) << str::to_utf8(c.text) << ": " << s.message_utf8();
    EXPECT_EQ(p, c.expected) << str::to_utf8(c.text);
    EXPECT_EQ(p.FullPath(), c.written) << str::to_utf8(c.text);
    ResultPath again;
    ASSERT_TRUE(again.SetDelimPath(p.FullPath()).succeeded());
    EXPECT_EQ(again, p) << "FullPath reads back: " << str::to_utf8(c.text);
  }
}

TEST(ResultPath, UnreadableTextIsAnErrorAndChangesNothing) {
  const wchar_t* bad[] = {L"a;b;c;last", L"a;b;c;1.5", L"a;b;c;99999999999", L"a;b;c;d;e",
                          L"\"open;b;c;1", L"a;b;c;(LAST)x"};
  for (const wchar_t* text : bad) {
    ResultPath p(L"keep", L"this", L"file", 4);
    const auto s = p.SetDelimPath(text);
    EXPECT_TRUE(s.failed()) << str::to_utf8(text);
    EXPECT_EQ(p, ResultPath(L"keep", L"this", L"file", 4)) << str::to_utf8(text);
    const auto m = s.message();
    EXPECT_NE(m.find(L":\n\n"), std::wstring::npos) << "heading and detail: " << s.message_utf8();
    EXPECT_NE(m.find(text), std::wstring::npos) << "names the text: " << s.message_utf8();
  }
  ResultPath p;
  const auto s = p.SetDelimPath(L"a;b;c;abc");
  EXPECT_EQ(s.message(),
            L"The result path \"a;b;c;abc\" cannot be read:\n\nThe step \"abc\" is not \"(last)\", "
            L"\"(all)\" or a whole number.");
}

TEST(ResultPath, StepDescriptions) {
  EXPECT_EQ(ResultPath::DescriptionTimeStep(kStepLast, 1), L"Last step");
  EXPECT_EQ(ResultPath::DescriptionTimeStep(0, 1), L"Initial conditions (step 0)");
  EXPECT_EQ(ResultPath::DescriptionTimeStep(7, 2.5), L"Step 7, time 2.5");
  EXPECT_EQ(ResultPath::DescriptionTimeStep(7, qvi::kNoValue), L"Step 7");
}

TEST(ResultInfo, FeedsTheTimeSteps) {
  ResultInfo info;
  info.SetSteps({{0, {0, 10, 1}}, {1, {1, 11, 0}}, {2, {2, 13, 1}}, {3, {3, 16, 1}}});
  v7::TIMEINCSTRUCT t;
  ASSERT_TRUE(t.SetTimeSteps(info, 0, v7::ResultStepType::SavedSteps).succeeded());
  EXPECT_EQ(t.StartTime(), 10) << "step 0 gives the start";
  EXPECT_EQ(t.Mode(), v7::TimeStepMode::External);
  ASSERT_EQ(t.TimeIncs().size(), 2u);
  EXPECT_EQ(t.TimeIncs()[0].fElapsed, 13);
  ASSERT_TRUE(t.SetTimeSteps(info, 2, v7::ResultStepType::AllSteps).succeeded());
  EXPECT_EQ(t.TimeIncs().size(), 2u);
  EXPECT_EQ(t.TimeIncs()[1].fElapsed, 13);
  ASSERT_TRUE(t.GenerateTimeSteps().succeeded());
  EXPECT_EQ(t.TimeIncs().size(), 2u) << "generation leaves external steps alone";
  EXPECT_TRUE(t.SetTimeSteps(ResultInfo{}, 0, v7::ResultStepType::AllSteps).failed());
}

}  // namespace
