#include "V7Doc/files/DocumentPaths.h"

#include <vector>

#include "OC/OCError.h"
#include "OC/Path.h"
#include "OC/Registry.h"
#include "OC/Schema.h"
#include "QVI/str/Convert.h"
#include "V7Doc/document/QVDocument.h"
#include "V7Doc/files/DocumentSchema.h"
#include "V7Doc/files/DocumentSummary.h"

namespace v7::doc {
namespace {

constexpr std::wstring_view kOwnNamespace = L"v7::";
constexpr unsigned kMsgNoRecord = 31069;
constexpr unsigned kMsgNoElement = 31070;

// The member a first step names: a member of the root by name or tag, or
// an alias seen from inside or outside the namespace v7.
const oc::Member* RootMember(std::wstring_view name) {
  const oc::RecordType& root = oc::TypeOf<QVDocument>();
  if (const oc::Member* m = root.FindMember(name)) return m;
  const auto& reg = oc::OCRegistry::Instance();
  if (const oc::Member* m = reg.ResolveAlias(root, name)) return m;
  if (name.starts_with(kOwnNamespace)) return reg.ResolveAlias(root, name.substr(kOwnNamespace.size()));
  return reg.ResolveAlias(root, std::wstring(kOwnNamespace) + std::wstring(name));
}

// Explains a path that failed to resolve because an index names no element:
// the first step whose collection resolves but whose element does not. Other
// misses keep the path's own message (an empty status here).
gtl::status ExplainIndexMiss(const oc::IODS& store, std::wstring_view path, std::wstring_view expression) {
  std::vector<oc::PathStep> steps;
  if (oc::ParsePath(path, steps).failed()) return {};
  std::wstring prefix;
  for (const auto& step : steps) {
    if (!prefix.empty()) prefix += L'.';
    prefix += step.name;
    oc::IOC collection;
    if (oc::Find(store, prefix, collection).failed()) return {};
    if (!step.has_index) continue;
    oc::IOC element;
    if (oc::Find(store, prefix + L"[" + step.index + L"]", element).succeeded()) {
      prefix += L"[" + step.index + L"]";
      continue;
    }
    if (!oc::IsArray(collection)) return {};
    // Tables number their records by ID, with gaps where records were
    // deleted: a few IDs are listed, more as their range. Arrays count
    // from 0 without gaps.
    const bool table = collection.Template() && collection.Template()->type == oc::ValueType::Table;
    std::vector<std::uint64_t> ids;
    for (oc::IOC c = collection.begin(); c.IsValid(); c = collection.GetNextSubOC(c))
      ids.push_back(files::ElementIndex(c));
    const auto n = [](std::uint64_t v) { return str::to_wstring(static_cast<unsigned long long>(v)); };
    const bool one = ids.size() == 1;
    std::wstring holds = ids.empty() ? std::wstring(table ? L"no records" : L"no elements")
                         : table     ? n(ids.size()) + (one ? L" record, ID " : L" records, IDs ")
                                     : n(ids.size()) + (one ? L" element, index " : L" elements, indices ");
    constexpr std::size_t kListed = 8;
    if (ids.size() > kListed || (!table && ids.size() > 1)) {
      holds += n(ids.front()) + L" to " + n(ids.back());
    } else {
      for (std::size_t i = 0; i < ids.size(); ++i)
        holds += (i == 0 ? L"" : i + 1 == ids.size() ? L" and " : L", ") + n(ids[i]);
    }
    return gtl::status::error(table ? kMsgNoRecord : kMsgNoElement, step.index, std::wstring(expression),
                              step.name, holds);
  }
  return {};
}

}  // namespace

std::wstring FillIndex(std::wstring_view expression, std::uint64_t index1) {
  std::wstring text(expression);
  const std::wstring n = str::to_wstring(static_cast<unsigned long long>(index1));
  for (std::size_t at = text.find(kIndexPlaceholder); at != std::wstring::npos;
       at = text.find(kIndexPlaceholder, at + n.size()))
    text.replace(at, kIndexPlaceholder.size(), n);
  return text;
}

gtl::status NormalizeExpression(std::wstring_view expression, std::optional<std::uint64_t> index1,
                                std::wstring& path) {
  const std::wstring where(expression);
  std::wstring_view rest = expression;
  if (rest.starts_with(kCurrentDocumentCall)) {
    rest.remove_prefix(kCurrentDocumentCall.size());
    if (!rest.starts_with(L".")) return oc::OCError::not_recognized(where, L"a member after the document");
    rest.remove_prefix(1);
  }
  if (!index1 && rest.find(kIndexPlaceholder) != std::wstring_view::npos)
    return oc::OCError::not_recognized(std::wstring(kIndexPlaceholder), where);
  const std::wstring text = index1 ? FillIndex(rest, *index1) : std::wstring(rest);
  std::vector<oc::PathStep> steps;
  if (auto s = oc::ParsePath(text, steps); s.failed()) return s;
  path.clear();
  for (std::size_t i = 0; i < steps.size(); ++i) {
    std::wstring_view name = oc::StripCall(steps[i].name);
    std::wstring resolved(name);
    // A first step that is neither a member nor an alias may still be a
    // persisted tag: the path's own resolution decides.
    if (i == 0)
      if (const oc::Member* m = RootMember(name)) resolved = m->name;
    if (i) path += L'.';
    path += resolved;
    if (steps[i].has_index) path += L"[" + steps[i].index + L"]";
  }
  return {};
}

gtl::status FindInDocument(QVDocument& document, std::wstring_view expression, oc::IOC& out,
                           std::optional<std::uint64_t> index1) {
  std::wstring path;
  if (auto s = NormalizeExpression(expression, index1, path); s.failed()) return s;
  const oc::IODS store = files::DocumentStore(document);
  if (auto s = oc::Find(store, path, out); s.failed()) {
    const gtl::status miss = ExplainIndexMiss(store, path, expression);
    return miss.failed() ? miss : s;
  }
  out.SetWhere(std::wstring(expression));
  return {};
}

gtl::status FindInCurrent(std::wstring_view expression, oc::IOC& out,
                          std::optional<std::uint64_t> index1) {
  const QVDocumentHandle& current = QVDocumentGetCurrentHandle();
  if (!current) return oc::OCError::not_recognized(std::wstring(kCurrentDocumentCall), L"(no current document)");
  return FindInDocument(*current, expression, out, index1);
}

}  // namespace v7::doc
