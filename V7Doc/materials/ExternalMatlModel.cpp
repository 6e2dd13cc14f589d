#include "V7Doc/materials/ExternalMatlModel.h"

#include "QVI/str/Convert.h"
#include "QVI/str/Format.h"

namespace v7 {
namespace {
constexpr unsigned kMsgBadField = 38014;
constexpr unsigned kMsgBadPiece = 38015;
}

gtl::status ExternalMatlModel::MakeFields(const FieldList& fields, std::wstring& out) {
  std::wstring text;
  for (const auto& [name, value] : fields) {
    const std::wstring n(str::trim(name));
    if (n.empty() || n.find_first_of(L"=;") != std::wstring::npos || value.find(kFieldSeparator) != std::wstring::npos)
      return gtl::status::error(kMsgBadField, name, value);
    if (!text.empty()) text += kFieldSeparator;
    text += str::format(L"%s=%s", n, std::wstring(str::trim(value)));
  }
  out = std::move(text);
  return {};
}

gtl::status ExternalMatlModel::ParseFields(FieldList& fields) const {
  fields.clear();
  std::size_t start = 0;
  while (start <= Fields_.size()) {
    std::size_t end = Fields_.find(kFieldSeparator, start);
    if (end == std::wstring::npos) end = Fields_.size();
    const std::wstring piece = Fields_.substr(start, end - start);
    start = end + 1;
    if (str::trim(piece).empty()) continue;
    const std::size_t eq = piece.find(L'=');
    const std::wstring name = eq == std::wstring::npos ? std::wstring() : std::wstring(str::trim(piece.substr(0, eq)));
    if (name.empty()) {
      fields.clear();
      return gtl::status::error(kMsgBadPiece, piece, Fields_);
    }
    fields.emplace_back(name, std::wstring(str::trim(piece.substr(eq + 1))));
  }
  return {};
}

}  // namespace v7
