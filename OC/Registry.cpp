#include "OC/Registry.h"

#include <algorithm>

#include "OC/OCError.h"
#include "OC/Schema.h"
#include "QVI/str/Convert.h"

namespace oc {

const RecordType* Template::Record() const {
  if (type) return type;
  return member && member->record ? &member->record() : nullptr;
}

OCRegistry& OCRegistry::Instance() {
  static OCRegistry registry;
  return registry;
}

const RecordType& AdoptRecordType(std::unique_ptr<RecordType> type) {
  return OCRegistry::Instance().Adopt(std::move(type));
}

const RecordType& OCRegistry::Adopt(std::unique_ptr<RecordType> type) {
  RecordType& t = *type;
  templates_.push_back(Template{static_cast<RegID>(templates_.size() + 1), nullptr, &t});
  t.Finish(templates_.back().id);
  for (const auto& m : t.Members()) {
    templates_.push_back(Template{static_cast<RegID>(templates_.size() + 1), m.get(), nullptr});
    m->id = templates_.back().id;
  }
  for (const auto& s : t.DeclarationErrors()) problems_.push_back(s);
  types_.push_back(std::move(type));
  return t;
}

RegID OCRegistry::RegisterOC(const RecordType& type, const meta::MetaPersistTraits& persist,
                             const meta::MetaDataTraits& data, std::wstring version) {
  const std::wstring tag = persist.tag.empty() ? type.Name() : persist.tag;
  for (const auto& r : roots_) {
    if (r.type == &type && r.tag == tag) return r.id;  // declared again: same entry
    if (r.tag == tag || r.type == &type) {
      problems_.push_back(OCError::not_supported(L"A second top-level declaration", tag));
      return 0;
    }
  }
  if (auto s = ValidateMetaData(ValueType::Struct, data); s.failed()) problems_.push_back(s);
  roots_.push_back(RootInfo{&type, type.ID(), tag, std::move(version), data});
  // Orderings registered before this root may now resolve.
  if (complete_) InitializationComplete();
  return type.ID();
}

void OCRegistry::OnPostRegistration(std::function<void()> hook) {
  if (complete_) hook();
  else hooks_.push_back(std::move(hook));
}

gtl::status OCRegistry::InitializationComplete() {
  auto hooks = std::move(hooks_);
  hooks_.clear();
  for (auto& h : hooks) h();
  std::vector<gtl::status> pending;
  for (auto& o : orderings_) {
    if (o.applied) continue;
    auto s = ApplyOrdering(o.first, o.second);
    if (s.succeeded()) o.applied = true;
    else pending.push_back(s);
  }
  complete_ = true;
  for (const auto& p : problems_)
    if (p.failed()) return p;
  return pending.empty() ? gtl::status{} : pending.front();
}

std::vector<gtl::status> OCRegistry::Problems() const { return problems_; }

gtl::status OCRegistry::RegisterAlias(const RecordType& root, const OCAlias& alias) {
  if (!root.FindMember(alias.redirect)) {
    auto s = OCError::not_recognized(alias.redirect, root.Name() + L" (alias " + alias.name + L")");
    problems_.push_back(s);
    return s;
  }
  auto& map = aliases_[&root];
  if (auto it = map.find(alias.name); it != map.end() && it->second != alias.redirect) {
    auto s = OCError::not_supported(L"An alias redirected twice", alias.name);
    problems_.push_back(s);
    return s;
  }
  map[alias.name] = alias.redirect;
  return {};
}

const Member* OCRegistry::ResolveAlias(const RecordType& root, std::wstring_view alias) const {
  const auto t = aliases_.find(&root);
  if (t == aliases_.end()) return nullptr;
  const auto a = t->second.find(alias);
  return a == t->second.end() ? nullptr : root.FindMember(a->second);
}

void OCRegistry::RegisterOrdering(std::wstring first, std::wstring second) {
  orderings_.push_back({std::move(first), std::move(second), false});
  if (complete_) InitializationComplete();
}

namespace {
std::vector<std::string> SplitTags(const std::wstring& path) {
  std::vector<std::string> out;
  std::size_t start = 0;
  for (;;) {
    const auto dot = path.find(L'.', start);
    out.push_back(str::to_utf8(path.substr(start, dot - start)));
    if (dot == std::wstring::npos) return out;
    start = dot + 1;
  }
}
}  // namespace

// Walks the common leading steps of both tag paths down the layout (through
// wrapper elements and nested records); the first differing steps are two
// sibling elements, and the first is moved ahead of the second.
gtl::status OCRegistry::ApplyOrdering(const std::wstring& first, const std::wstring& second) {
  const auto a = SplitTags(first), b = SplitTags(second);
  for (const auto& root : roots_) {
    TagNode* node = &const_cast<RecordType*>(root.type)->MutableLayout();
    std::size_t i = 0;
    for (; i < a.size() && i < b.size() && a[i] == b[i] && node; ++i) {
      const TagNode* c = node->Child(a[i]);
      if (c && c->member && c->member->type == ValueType::Struct)
        c = &c->member->record().Layout();
      node = const_cast<TagNode*>(c);
      if (c && c->member) node = nullptr;  // a value or collection cannot hold the pair
    }
    if (!node || i >= a.size() || i >= b.size()) continue;
    auto& kids = node->children;
    auto find = [&](const std::string& tag) {
      return std::find_if(kids.begin(), kids.end(), [&](const auto& c) { return c->tag == tag; });
    };
    auto fa = find(a[i]), fb = find(b[i]);
    if (fa == kids.end() || fb == kids.end()) continue;
    if (fa > fb) std::rotate(fb, fa, fa + 1);
    node->Reindex();
    return {};
  }
  return OCError::not_recognized(first + L" before " + second, L"the persistence ordering");
}

const Template* OCRegistry::Get(RegID id) const {
  return id >= 1 && id <= templates_.size() ? &templates_[id - 1] : nullptr;
}

const Template* OCRegistry::Get(std::wstring_view name) const {
  for (const auto& r : roots_)
    if (r.tag == name) return Get(r.id);
  for (const auto& t : types_)
    if (t->Name() == name) return Get(t->ID());
  return nullptr;
}

const RootInfo* OCRegistry::Root(const RecordType& type) const {
  for (const auto& r : roots_)
    if (r.type == &type) return &r;
  return nullptr;
}

const RootInfo* OCRegistry::Root(std::wstring_view tag) const {
  for (const auto& r : roots_)
    if (r.tag == tag) return &r;
  return nullptr;
}

OCAliasRegistrator::OCAliasRegistrator(const RecordType& root, const OCAlias& alias)
    : status_(OCRegistry::Instance().RegisterAlias(root, alias)) {}

const Template* GetTemplate(RegID id) { return OCRegistry::Instance().Get(id); }
const Template* GetTemplate(std::wstring_view name) { return OCRegistry::Instance().Get(name); }

RegID SubRegID(RegID parent, std::wstring_view name) {
  const Template* t = GetTemplate(parent);
  const RecordType* rec = t ? t->Record() : nullptr;
  if (!rec) return 0;
  if (const Member* m = rec->FindMember(name)) return m->id;
  if (t->type)
    if (const Member* m = OCRegistry::Instance().ResolveAlias(*rec, name)) return m->id;
  return 0;
}

RegID SubRegIDByTag(RegID parent, std::wstring_view tag) {
  const Template* t = GetTemplate(parent);
  const RecordType* rec = t ? t->Record() : nullptr;
  if (!rec) return 0;
  for (const auto& m : rec->Members())
    if (m->persist.tag == tag) return m->id;
  return 0;
}

const meta::MetaDataTraits* DataTraits(RegID id) {
  const Template* t = GetTemplate(id);
  return t && t->member ? &t->member->traits : nullptr;
}

}  // namespace oc
