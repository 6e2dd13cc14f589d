// Delimited result paths from arbitrary text: reading never crashes, a failed
// read leaves the path as it was, and whatever reads back writes a text that
// reads back to the same path.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "QVI/str/Convert.h"
#include "V7Doc/analysis/ResultPath.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text =
      str::to_wstring(std::string_view(reinterpret_cast<const char*>(data), size));
  using v7::v7qvi::analysis::ResultPath;
  const ResultPath before(L"p", L"s", L"f", 3);
  ResultPath path = before;
  if (!path.SetDelimPath(text).succeeded()) {
    if (!(path == before)) __builtin_trap();
    return 0;
  }
  ResultPath again;
  if (!again.SetDelimPath(path.FullPath()).succeeded() || !(again == path)) __builtin_trap();
  (void)ResultPath::DescriptionTimeStep(path.Step(), 1.5);
  return 0;
}
