// The names of result tables: `--columns` lists and the entry names of a
// package. The input's first line is a column list; the other lines are
// entry names, the last of them also asked for as a table name.
//  - A column list that reads names only quantities, at least one, and its
//    names written back read to the same list.
//  - Every result entry listed is one of the names given, under an analysis
//    above 0, and finding its table for its analysis and step gives an entry
//    of that table, analysis and step.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/str/Convert.h"
#include "V7Doc/results/ResultPackage.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  namespace r = v7::result;
  const std::wstring text = str::to_wstring(std::string_view(reinterpret_cast<const char*>(data), size));
  std::vector<std::wstring> lines;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t nl = std::min(text.find(L'\n', start), text.size());
    lines.push_back(text.substr(start, nl - start));
    start = nl + 1;
  }

  std::vector<v7::DataParamType> columns;
  if (r::ParseColumnList(lines[0], columns).succeeded()) {
    if (columns.empty()) __builtin_trap();
    std::wstring written;
    for (v7::DataParamType p : columns) {
      const std::wstring name = meta::ToName(p);
      if (name.empty()) __builtin_trap();
      written += (written.empty() ? L"" : L",") + name;
    }
    std::vector<v7::DataParamType> again;
    if (r::ParseColumnList(written, again).failed() || again != columns) __builtin_trap();
  }

  const std::vector<std::wstring> names(lines.begin() + 1, lines.end());
  const std::vector<r::ResultEntry> entries = r::ListResultEntries(names);
  for (const r::ResultEntry& e : entries) {
    if (e.analysis == 0) __builtin_trap();
    if (std::find(names.begin(), names.end(), e.entry) == names.end()) __builtin_trap();
    r::ResultEntry found;
    if (r::FindResultEntry(entries, e.analysis, e.table, e.step, found).failed()) __builtin_trap();
    if (found.analysis != e.analysis || found.table != e.table || found.step != e.step) __builtin_trap();
  }
  if (!names.empty()) {
    r::ResultEntry found;
    const gtl::status s = r::FindResultEntry(entries, 1, names.back(), v7::v7qvi::analysis::kStepNone, found);
    (void)s.message();
  }
  return 0;
}
