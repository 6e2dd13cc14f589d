#include "V7Doc/functions/Func3DPointsCsv.h"

#include <cmath>
#include <string>

#include "QVI/str/Convert.h"

namespace v7 {
namespace {
constexpr unsigned kMsgBadRow = 33577;
constexpr unsigned kMsgNoRows = 33578;

bool IsSeparator(char c) { return c == ',' || c == ';' || c == '\t'; }

// The three numbers of `row`, or false.
bool ParseRow(std::string_view row, double v[3]) {
  int field = 0;
  std::size_t start = 0;
  for (std::size_t i = 0; i <= row.size(); ++i) {
    if (i < row.size() && !IsSeparator(row[i])) continue;
    if (field == 3) return false;
    double d = 0;
    if (!str::parse(str::to_wstring(row.substr(start, i - start)), d) || !std::isfinite(d)) return false;
    v[field++] = d;
    start = i + 1;
  }
  return field == 3;
}

std::string Shown(std::string_view row) {
  std::string s(row.substr(0, 60));
  if (row.size() > 60) s += "...";
  return s;
}
}  // namespace

gtl::status ReadFunc3DPointsCsv(std::string_view text, std::vector<FnPoint>& points) {
  points.clear();
  if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
  std::size_t lineNo = 0;
  bool firstRow = true;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view row = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    ++lineNo;
    if (!row.empty() && row.back() == '\r') row.remove_suffix(1);
    const std::size_t first = row.find_first_not_of(" \t");
    if (first == std::string_view::npos || row[first] == '#') continue;
    double v[3];
    if (ParseRow(row, v)) {
      points.push_back({v[0], v[1], v[2]});
    } else if (!firstRow) {
      points.clear();
      return gtl::status::error(kMsgBadRow, lineNo, Shown(row));
    }
    firstRow = false;
  }
  if (points.empty()) return gtl::status::error(kMsgNoRows);
  return {};
}

}  // namespace v7
