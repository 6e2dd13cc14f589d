#include "V7Doc/functions/FnDataText.h"

#include <cmath>

#include "QVI/str/Convert.h"

namespace v7 {
namespace {

constexpr unsigned kMsgBadDataPoint = 33562;
// A piece quoted in a message is cut here: a garbage piece can be long.
constexpr std::size_t kMaxQuoted = 40;

bool ParseFinite(std::wstring_view t, double& v) {
  return str::parse(t, v) && std::isfinite(v);
}

}  // namespace

gtl::status ParseFnDataPoints(std::wstring_view text, std::vector<FnPoint>& points) {
  std::vector<FnPoint> out;
  std::size_t start = 0, n = 0;
  while (start <= text.size()) {
    const std::size_t end = std::min(text.find(L';', start), text.size());
    const std::wstring_view piece = text.substr(start, end - start);
    start = end + 1;
    ++n;
    if (str::trim(piece).empty()) continue;
    const std::size_t comma = piece.find(L',');
    double x = 0, y = 0;
    if (comma == std::wstring_view::npos || !ParseFinite(piece.substr(0, comma), x) ||
        !ParseFinite(piece.substr(comma + 1), y)) {
      std::wstring quoted(piece.substr(0, kMaxQuoted));
      if (piece.size() > kMaxQuoted) quoted += L"...";
      return gtl::status::error(kMsgBadDataPoint, n, quoted);
    }
    out.push_back({x, y, 0.0});
  }
  points = std::move(out);
  return {};
}

std::wstring FormatFnDataPoints(const std::vector<FnPoint>& points) {
  std::wstring out;
  for (const FnPoint& p : points) {
    if (!out.empty()) out += L";";
    out += str::to_wstring(p.x) + L"," + str::to_wstring(p.y);
  }
  return out;
}

}  // namespace v7
