#include "V7Doc/files/KeptTextPaths.h"

#include <cwctype>
#include <string_view>

#include "OC/Schema.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"

namespace v7::files {
namespace {

struct TablePath {
  std::wstring path;  // the persisted path of the table member
  GID container;
};

// The registered tables that are declared members of the document, found by
// address: the member's field is the container object itself.
std::vector<TablePath> TablePaths(const QVDocument& doc) {
  std::vector<TablePath> out;
  auto* root = const_cast<QVDocument*>(&doc);
  for (const auto& m : oc::TypeOf<QVDocument>().Members()) {
    if (m->type != oc::ValueType::Table) continue;
    const void* field = m->access->Field(root);
    for (const IQVContainer* c : doc.ContainerManager())
      if (c && dynamic_cast<const void*>(c) == field) out.push_back({m->persist.tag, c->ID()});
  }
  return out;
}

}  // namespace

void AdoptKeptTexts(QVDocument& doc, const oc::xml::KeptTexts& by_path) {
  auto& kept = doc.KeptTexts();
  kept.Clear();
  if (by_path.empty()) return;
  const std::vector<TablePath> tables = TablePaths(doc);
  for (const auto& [path, text] : by_path) {
    KeptText k{0, 0, path, text};
    for (const TablePath& t : tables) {
      const std::wstring_view p(path);
      if (p.size() <= t.path.size() + 2 || !p.starts_with(t.path) || p[t.path.size()] != L'[') continue;
      const std::size_t close = p.find(L']', t.path.size());
      if (close == std::wstring_view::npos) continue;
      GID id = 0;
      bool digits = close > t.path.size() + 1;
      for (std::size_t i = t.path.size() + 1; digits && i < close; ++i) {
        digits = std::iswdigit(p[i]) && id < 100000000u;
        id = id * 10 + static_cast<GID>(p[i] - L'0');
      }
      if (!digits || id == 0) continue;
      k = KeptText{t.container, id, std::wstring(p.substr(close + 1)), text};
      break;
    }
    kept.Entries().push_back(std::move(k));
  }
}

oc::xml::KeptTexts KeptTextsByPath(const QVDocument& doc) {
  oc::xml::KeptTexts out;
  const auto& entries = doc.KeptTexts().Entries();
  if (entries.empty()) return out;
  const std::vector<TablePath> tables = TablePaths(doc);
  for (const KeptText& k : entries) {
    if (k.container == 0) {
      out[k.member] = k.text;
      continue;
    }
    for (const TablePath& t : tables)
      if (t.container == k.container)
        out[t.path + L"[" + str::to_wstring(static_cast<unsigned long long>(k.record)) + L"]" + k.member] = k.text;
  }
  return out;
}

}  // namespace v7::files
