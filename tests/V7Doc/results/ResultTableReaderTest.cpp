// The comma-separated result-table reader: what it accepts, what it refuses,
// and that every refusal names the file, the row and the column.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "QVI/qvi/Markers.h"
#include "V7Doc/results/ResultMessages.h"
#include "V7Doc/results/ResultTableReader.h"

namespace v7::result {
namespace {

using P = DataParamType;
constexpr double kNV = qvi::kNoValue;

TEST(ResultTableReader, AcceptsWhatSolversAndPeopleWrite) {
  const struct {
    const char* what;
    std::string text;
    std::vector<P> columns;
    std::vector<std::vector<double>> rows;
  } cases[] = {
      {"plain, columns picked and reordered", "Node,X,Y\n1,0.5,2\n2,1.5,-3e2\n", {P::Y, P::Node},
       {{2, 1}, {-300, 2}}},
      {"CRLF, BOM, blank lines anywhere, no final newline",
       "\xEF\xBB\xBFX,Y\r\n\r\n1,2\r\n   \r\n\t\n3,4", {P::X, P::Y}, {{1, 2}, {3, 4}}},
      {"blanks around fields and quoted fields", " \"X\" ,\tY \n \"1.25\" , 2 \n", {P::X, P::Y},
       {{1.25, 2}}},
      {"empty cell is the no-value marker; leading plus", "X,Y\n,+7\n1,\n", {P::X, P::Y},
       {{kNV, 7}, {1, kNV}}},
      {"the text ends after a comma", "X,Y\n1,2\n7,", {P::X, P::Y}, {{1, 2}, {7, kNV}}},
      {"columns nobody asks for may hold anything, even unknown names",
       "Comment,X,Foo\n\"a, b\",1,x\"y\nzz,2\n", {P::X}, {{1}, {2}}},
      {"rows may end after the last asked-for column", "X,Y,Z\n1,2\n3,4,5\n", {P::X, P::Y},
       {{1, 2}, {3, 4}}},
      {"TrussID answers Node (both 0); names match without case",
       "trussid,poreWATERpressure\n7,-9.807\n", {P::Node, P::PoreWaterPressure}, {{7, -9.807}}},
      {"values out of declaration order (Liquefied 344)", "Liquefied,Yield\n1,0\n",
       {P::Liquefied}, {{1}}},
      {"header only: no rows", "X,Y\r\n", {P::X}, {}},
      {"exponent forms and the extreme finite values",
       "X\n1E3\n-0\n1.7976931348623157e308\n4.9406564584124654e-324\n", {P::X},
       {{1000}, {-0.0}, {kNV}, {4.9406564584124654e-324}}},
  };
  for (const auto& c : cases) {
    ResultTable t;
    // Exactly the text's bytes, no terminator after them: a read past the
    // end is caught by the sanitizer builds.
    const std::string_view text(c.text);
    const std::vector<char> exact(text.begin(), text.end());
    const gtl::status s = ReadResultTable({exact.data(), exact.size()}, L"t.csv", c.columns, t);
    ASSERT_TRUE(s.succeeded()) << c.what << ": " << s.message_utf8();
    ASSERT_EQ(t.Rows(), c.rows.size()) << c.what;
    EXPECT_EQ(t.Params(), c.columns) << c.what;
    for (std::size_t r = 0; r < c.rows.size(); ++r)
      for (std::size_t k = 0; k < c.columns.size(); ++k) {
        EXPECT_EQ(t.At(r, k), c.rows[r][k]) << c.what << " row " << r << " col " << k;
        EXPECT_EQ(t.Column(k)[r], c.rows[r][k]) << c.what;
      }
  }
}

TEST(ResultTableReader, RefusalsNameFileRowAndColumn) {
  const struct {
    const char* what;
    std::string text;
    std::vector<P> columns;
    unsigned id;
    std::vector<std::string> mentions;  // pieces the message must hold
  } cases[] = {
      {"missing column", "\nX,Y\n1,2\n", {P::X, P::PoreWaterPressure}, result_msg::kMissingColumn,
       {"n.csv, row 2", "\"PoreWaterPressure\""}},
      {"quantity twice in the header", "X,Node,X\n", {P::X}, result_msg::kDuplicateColumn,
       {"row 1", "\"X\"", "columns 1 and 3"}},
      {"short row", "X,Y,Z\n1,2,3\n\n4,5\n", {P::X, P::Z}, result_msg::kShortRow,
       {"n.csv, row 4", "column 3", "\"Z\""}},
      {"text in a number", "X,Y\n1,2\n3,abc\n", {P::X, P::Y}, result_msg::kNotANumber,
       {"n.csv, row 3, column 2", "\"Y\"", "\"abc\""}},
      {"only blank lines", "\r\n  \n", {P::X}, result_msg::kNoHeader, {"n.csv", "no header"}},
      {"number with a tail", "X\n1.5m\n", {P::X}, result_msg::kNotANumber, {"\"1.5m\""}},
      {"infinity is no result", "X\ninf\n", {P::X}, result_msg::kNotANumber, {"\"inf\""}},
      {"out of range", "X\n1e999\n", {P::X}, result_msg::kNotANumber, {"1e999"}},
      {"unclosed quote in a cell", "X,Y\n\"1,2\n", {P::Y}, result_msg::kOpenQuote,
       {"n.csv, row 2, column 1"}},
      {"a lone CR does not end a row", "X\n1\r2\n", {P::X}, result_msg::kNotANumber, {"row 2"}},
  };
  for (const auto& c : cases) {
    ResultTable t;
    ASSERT_TRUE(ReadResultTable("X\n42\n", L"prev.csv", {P::X}, t).succeeded());
    const ResultTable before = t;
    const gtl::status s = ReadResultTable(c.text, L"n.csv", c.columns, t);
    ASSERT_TRUE(s.failed()) << c.what;
    EXPECT_EQ(s.id(), c.id) << c.what << ": " << s.message_utf8();
    for (const auto& m : c.mentions)
      EXPECT_NE(s.message_utf8().find(m), std::string::npos) << c.what << ": " << s.message_utf8();
    EXPECT_TRUE(t == before) << c.what << ": the table must be left as it was";
  }
}

TEST(ResultTableReader, LongGarbageIsQuotedShort) {
  const std::string cell(100000, 'z');
  ResultTable t;
  const gtl::status s = ReadResultTable("X\n" + cell + "\n", L"g.csv", {P::X}, t);
  ASSERT_TRUE(s.failed());
  EXPECT_LT(s.message_utf8().size(), 200u);
}

TEST(ResultTableReader, HeaderListsKnownQuantities) {
  std::vector<P> cols;
  std::vector<std::wstring> unknown;
  ASSERT_TRUE(ReadResultTableHeader("\xEF\xBB\xBF" "Node, X ,Remark,\"Y\",1DEdgeDataPtID\n", L"h.csv",
                                    cols, &unknown)
                  .succeeded());
  EXPECT_EQ(cols, (std::vector<P>{P::Node, P::X, P::Y, P::OneDEdgeDataPtID}));
  EXPECT_EQ(unknown, (std::vector<std::wstring>{L"Remark"}));
  EXPECT_EQ(ReadResultTableHeader("", L"h.csv", cols).id(), result_msg::kNoHeader);
  // A header that names no quantity at all is refused, its names quoted
  // with their control characters escaped.
  const gtl::status none = ReadResultTableHeader(std::string("Remark,Na\0me\n1,2\n", 15), L"h.csv", cols, &unknown);
  EXPECT_EQ(none.id(), result_msg::kNoKnownColumn);
  EXPECT_NE(none.message().find(L"\"Remark\", \"Na\\x00me\""), std::wstring::npos) << none.message_utf8();
  EXPECT_EQ(unknown.size(), 2u);
}

TEST(ResultTableReader, ReadsFilesAndNamesTheMissingOne) {
  const auto path = std::filesystem::temp_directory_path() / "qvv7_reader_test_node.csv";
  {
    std::ofstream out(path, std::ios::binary);
    out << "\xEF\xBB\xBFNode,Y,PoreWaterPressure\r\n1,0,58.842\r\n2,10,-39.228\r\n";
  }
  ResultTable t;
  ASSERT_TRUE(ReadResultTableFile(path.wstring(), {P::PoreWaterPressure}, t).succeeded());
  ASSERT_EQ(t.Rows(), 2u);
  EXPECT_EQ(t.At(1, 0), -39.228);
  std::filesystem::remove(path);
  const gtl::status s = ReadResultTableFile(L"/nonexistent/dir/node.csv", {P::X}, t);
  EXPECT_EQ(s.id(), result_msg::kCannotRead);
  EXPECT_NE(s.message_utf8().find("/nonexistent/dir/node.csv"), std::string::npos);
}

}  // namespace
}  // namespace v7::result
