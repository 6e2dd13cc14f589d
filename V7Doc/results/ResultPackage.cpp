#include "V7Doc/results/ResultPackage.h"

#include <algorithm>
#include <charconv>
#include <tuple>

#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"
#include "V7Doc/results/ResultMessages.h"

namespace v7::result {
namespace {

constexpr std::wstring_view kExt = L".csv";

// A folder name of decimal digits that fits `limit`; -1 otherwise.
long long FolderNumber(std::wstring_view s, long long limit) {
  if (s.empty() || s.size() > 10) return -1;
  long long n = 0;
  for (wchar_t ch : s) {
    if (ch < L'0' || ch > L'9') return -1;
    n = n * 10 + (ch - L'0');
  }
  return n <= limit ? n : -1;
}

// Table stems are lower-case words, digits and '_' ("gauss_1d", "slice_3").
bool IsTableName(std::wstring_view s) {
  if (s.empty()) return false;
  return std::all_of(s.begin(), s.end(), [](wchar_t ch) {
    return (ch >= L'a' && ch <= L'z') || (ch >= L'0' && ch <= L'9') || ch == L'_';
  });
}

std::wstring_view Trim(std::wstring_view s) { return str::trim(s); }

std::wstring StepText(std::int32_t step) {
  return step == v7qvi::analysis::kStepNone ? std::wstring(L"any") : str::to_wstring(step);
}

}  // namespace

std::vector<ResultEntry> ListResultEntries(const std::vector<std::wstring>& entries) {
  std::vector<ResultEntry> out;
  for (const std::wstring& name : entries) {
    std::vector<std::wstring_view> parts;
    std::wstring_view rest(name);
    for (std::size_t slash; (slash = rest.find(L'/')) != std::wstring_view::npos;) {
      parts.push_back(rest.substr(0, slash));
      rest.remove_prefix(slash + 1);
    }
    parts.push_back(rest);
    if (parts.size() < 2 || parts.size() > 3) continue;
    const std::wstring_view file = parts.back();
    if (file.size() <= kExt.size() || file.substr(file.size() - kExt.size()) != kExt) continue;
    const std::wstring_view stem = file.substr(0, file.size() - kExt.size());
    if (!IsTableName(stem)) continue;
    const long long analysis = FolderNumber(parts[0], 0xFFFFFFFFLL);
    if (analysis <= 0) continue;
    ResultEntry e;
    e.analysis = static_cast<GID>(analysis);
    if (parts.size() == 3) {
      const long long step = FolderNumber(parts[1], v7qvi::analysis::kStepLast - 1);
      if (step < 0) continue;
      e.step = static_cast<std::int32_t>(step);
    }
    e.table = std::wstring(stem);
    e.entry = name;
    out.push_back(std::move(e));
  }
  // Whole-run tables (step none, the largest int) sort before the steps.
  auto key = [](const ResultEntry& e) {
    const long long step = e.step == v7qvi::analysis::kStepNone ? -1 : e.step;
    return std::tuple<GID, long long, const std::wstring&>(e.analysis, step, e.table);
  };
  std::sort(out.begin(), out.end(),
            [&key](const ResultEntry& a, const ResultEntry& b) { return key(a) < key(b); });
  return out;
}

gtl::status ParseColumnList(std::wstring_view text, std::vector<DataParamType>& columns) {
  std::vector<DataParamType> out;
  std::size_t position = 0;
  std::wstring_view rest = text;
  for (;;) {
    const std::size_t comma = rest.find(L',');
    const std::wstring_view name = Trim(rest.substr(0, comma));
    ++position;
    if (!name.empty()) {
      const auto v = meta::EnumTable<DataParamType>().ValueOf(name);
      if (!v) return gtl::status::error(result_msg::kUnknownQuantity, position, name);
      out.push_back(static_cast<DataParamType>(*v));
    }
    if (comma == std::wstring_view::npos) break;
    rest.remove_prefix(comma + 1);
  }
  if (out.empty()) return gtl::status::error(result_msg::kEmptyColumnList, text);
  columns = std::move(out);
  return {};
}

gtl::status FindResultEntry(const std::vector<ResultEntry>& entries, GID analysis,
                            std::wstring_view table, std::int32_t step, ResultEntry& found) {
  if (!IsTableName(table)) return gtl::status::error(result_msg::kBadTableName, table);
  const bool anyFolder = std::any_of(entries.begin(), entries.end(),
                                     [analysis](const ResultEntry& e) { return e.analysis == analysis; });
  if (!anyFolder) return gtl::status::error(result_msg::kNoResultFolder, analysis);
  const ResultEntry* best = nullptr;
  for (const ResultEntry& e : entries) {
    if (e.analysis != analysis || e.table != table) continue;
    if (step != v7qvi::analysis::kStepNone) {
      if (e.step == step) best = &e;
      continue;
    }
    if (e.step == v7qvi::analysis::kStepNone) {
      best = &e;
      break;
    }
    if (!best || e.step > best->step) best = &e;
  }
  if (!best) return gtl::status::error(result_msg::kNoSuchTable, table, analysis, StepText(step));
  found = *best;
  return {};
}

std::string FormatResultTable(const ResultTable& table, std::size_t maxRows) {
  std::string out;
  for (std::size_t c = 0; c < table.Columns(); ++c) {
    if (c) out += ',';
    out += str::to_utf8(meta::ToName(table.Params()[c]));
  }
  out += '\n';
  const std::size_t rows = std::min(maxRows, table.Rows());
  char buf[32];
  for (std::size_t r = 0; r < rows; ++r) {
    for (std::size_t c = 0; c < table.Columns(); ++c) {
      if (c) out += ',';
      const double v = table.At(r, c);
      // An empty cell reads back as the no-value marker, but a row of one
      // empty cell would be a blank row, which readers skip: it is written
      // as the marker's number instead.
      if (v == qvi::kNoValue && table.Columns() > 1) continue;
      const auto res = std::to_chars(buf, buf + sizeof buf, v);
      out.append(buf, res.ptr);
    }
    out += '\n';
  }
  return out;
}

}  // namespace v7::result
