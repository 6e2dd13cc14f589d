// Result tables from arbitrary bytes: reading never crashes or hangs, a
// failed read leaves the table as it was, a successful one holds
// Rows() x Columns() values, and printing it gives text that reads back to
// the same table.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "V7Doc/results/ResultPackage.h"
#include "V7Doc/results/ResultTableReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using v7::DataParamType;
  namespace r = v7::result;
  const std::string_view text(reinterpret_cast<const char*>(data), size);

  // A fixed list (with a repeat) and the list the header itself names.
  std::vector<std::vector<DataParamType>> lists = {
      {DataParamType::Y, DataParamType::Node, DataParamType::PoreWaterPressure, DataParamType::Y}};
  std::vector<DataParamType> header;
  if (r::ReadResultTableHeader(text, L"fuzz.csv", header).succeeded()) lists.push_back(header);

  for (std::size_t k = 0; k < lists.size(); ++k) {
    const auto& columns = lists[k];
    r::ResultTable table;
    const r::ResultTable before = table;
    if (!r::ReadResultTable(text, L"fuzz.csv", columns, table).succeeded()) {
      if (!(table == before)) __builtin_trap();
      continue;
    }
    if (table.Values().size() != table.Rows() * table.Columns()) __builtin_trap();
    // The header's own list read without a duplicate, so its print (one
    // column per quantity) must read back to the same table. The fixed list
    // repeats Y, which a header may not; an empty list prints no header.
    if (k == 0 || columns.empty()) continue;
    r::ResultTable again;
    if (!r::ReadResultTable(r::FormatResultTable(table), L"again.csv", columns, again).succeeded() ||
        !(again == table))
      __builtin_trap();
  }
  return 0;
}
