#include "V7Doc/files/DocumentSummary.h"

#include <cwchar>
#include <cwctype>

#include "OC/IOC.h"
#include "OC/Schema.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentSchema.h"

namespace v7::files {
namespace {
std::vector<CollectionSummary> Walk(const QVDocument& doc, const QVDocument* other) {
  std::vector<CollectionSummary> out;
  const oc::RecordType& type = oc::TypeOf<QVDocument>();
  const oc::IOC root(DocumentStore(const_cast<QVDocument&>(doc)));
  for (const auto& m : type.Members()) {
    if (m->type != oc::ValueType::Table && m->type != oc::ValueType::Array) continue;
    CollectionSummary s{m->name, m->persist.tag, root.GetSubOC(m->name).Length(), true};
    if (other) {
      void* a = m->access->Field(const_cast<QVDocument*>(&doc));
      void* b = m->access->Field(const_cast<QVDocument*>(other));
      s.same = m->type == oc::ValueType::Table ? m->table->Equal(a, b) : m->seq->Equal(a, b);
    }
    out.push_back(std::move(s));
  }
  return out;
}
}  // namespace

std::vector<CollectionSummary> SummarizeCollections(const QVDocument& doc) { return Walk(doc, nullptr); }

std::vector<CollectionSummary> CompareCollections(const QVDocument& doc, const QVDocument& other) {
  return Walk(doc, &other);
}

}  // namespace v7::files

namespace v7::files {

std::uint64_t ElementIndex(const oc::IOC& element) {
  const std::wstring where = element.Where();
  const auto open = where.rfind(L'[');
  if (open == std::wstring::npos || where.back() != L']') return 0;
  return std::wcstoull(where.c_str() + open + 1, nullptr, 10);
}

std::wstring RecordLabel(const oc::IOC& record) {
  static constexpr std::wstring_view kLabels[] = {L"name", L"title", L"description"};
  const auto lower = [](std::wstring s) {
    for (auto& c : s) c = static_cast<wchar_t>(std::towlower(c));
    return s;
  };
  // The member's C++ name without its type prefix and trailing underscore
  // ("strName_" -> "name"), or its persisted tag.
  const auto matches = [&](const oc::Member& m, std::wstring_view label) {
    if (lower(m.last_tag) == label) return true;
    std::wstring n = lower(m.name);
    while (!n.empty() && n.back() == L'_') n.pop_back();
    return n.size() >= label.size() && n.compare(n.size() - label.size(), label.size(), label) == 0;
  };
  for (std::wstring_view label : kLabels)
    for (oc::IOC c = record.begin(); c.IsValid(); c = record.GetNextSubOC(c)) {
      if (c.Type() != oc::ValueType::WString || !c.Template() || !matches(*c.Template(), label)) continue;
      std::wstring text;
      if (c.Get(text).succeeded()) return text;
    }
  return {};
}

}  // namespace v7::files
