// A material model's stored field list and an add-in name stored in a
// project, over arbitrary bytes: the field list reads back to what it was
// written from, and a name that the manager accepts never leaves its folder.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "QVI/qvi/addins/AddInsManager.h"
#include "QVI/str/Convert.h"
#include "V7Doc/materials/ExternalMatlModel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = str::to_wstring(std::string_view(reinterpret_cast<const char*>(data), size));
  v7::ExternalMatlModel model(L"M", L"a.so", text);
  v7::ExternalMatlModel::FieldList fields;
  if (model.ParseFields(fields).succeeded()) {
    std::wstring written;
    if (!v7::ExternalMatlModel::MakeFields(fields, written).succeeded()) __builtin_trap();
    v7::ExternalMatlModel::FieldList again;
    if (!v7::ExternalMatlModel(L"M", L"a.so", written).ParseFields(again).succeeded() || again != fields)
      __builtin_trap();
  }
  if (qvi::addins::AddInsManager::IsContainedName(text)) {
    // No step may be "..", and the name may not start at a root.
    if (text[0] == L'/' || text[0] == L'\\') __builtin_trap();
    std::size_t start = 0;
    for (std::size_t i = 0; i <= text.size(); ++i)
      if (i == text.size() || text[i] == L'/' || text[i] == L'\\') {
        if (text.compare(start, i - start, L"..") == 0) __builtin_trap();
        start = i + 1;
      }
  }
  // No folder holds the name: the lookup must fail cleanly, not crash.
  qvi::addins::AddInsManager::Instance().SetUserFolder(L"/nonexistent-qvv7-fuzz");
  std::wstring path;
  (void)qvi::addins::AddInsManager::Instance().GetAddInPath(text, path);
  return 0;
}
