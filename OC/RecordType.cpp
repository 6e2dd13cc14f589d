#include "OC/RecordType.h"

#include "QVI/str/Convert.h"

namespace oc {
namespace {
constexpr unsigned kMsgBadDeclaration = 31031;

gtl::status BadDeclaration(const RecordType& t, const std::wstring& member, const std::wstring& why) {
  return gtl::status::error(kMsgBadDeclaration, t.Name() + L"." + member, why);
}

std::vector<std::wstring> SplitDots(const std::wstring& s) {
  std::vector<std::wstring> out;
  std::size_t start = 0;
  for (;;) {
    const auto dot = s.find(L'.', start);
    out.push_back(s.substr(start, dot - start));
    if (dot == std::wstring::npos) return out;
    start = dot + 1;
  }
}
}  // namespace

const TagNode* TagNode::Child(std::string_view name) const {
  const auto it = index_.find(name);
  return it == index_.end() ? nullptr : children[it->second].get();
}

void TagNode::Reindex() {
  index_.clear();
  for (std::size_t i = 0; i < children.size(); ++i) {
    children[i]->rank = i;
    index_.emplace(children[i]->tag, i);
  }
}

RecordType::RecordType(std::wstring name, RecordOps ops) : name_(std::move(name)), ops_(ops) {}

RecordType::~RecordType() {
  if (prototype_) ops_.destroy(prototype_);
}

const Member* RecordType::FindMember(std::wstring_view name) const {
  for (const auto& m : members_)
    if (m->name == name) return m.get();
  return nullptr;
}

Member& RecordType::AddMember(std::unique_ptr<Member> m) {
  m->owner = this;
  if (m->persist.tag.empty()) m->persist.tag = m->name;
  const auto steps = SplitDots(m->persist.tag);
  m->last_tag = steps.back();
  m->tag_utf8 = str::to_utf8(m->last_tag);
  m->element_tag_utf8 = str::to_utf8(m->persist.element_tag);
  for (const auto& step : steps)
    if (step.empty() || step.find_first_of(L"[]<>&\"' ") != std::wstring::npos)
      errors_.push_back(BadDeclaration(*this, m->name, L"persisted tag \"" + m->persist.tag +
                                                            L"\" is not an element name"));
  if (FindMember(m->name))
    errors_.push_back(BadDeclaration(*this, m->name, L"declared twice"));
  if ((m->type == ValueType::Array || m->type == ValueType::Table) && m->persist.element_tag.empty())
    errors_.push_back(BadDeclaration(*this, m->name, L"a collection without an element tag"));
  if (m->type == ValueType::Table && m->persist.element_tag == L"ID")
    errors_.push_back(BadDeclaration(*this, m->name, L"\"ID\" is reserved in a table"));
  if (auto s = ValidateMetaData(m->ScalarType() == ValueType::Struct ? m->type : m->ScalarType(),
                                m->traits);
      s.failed())
    errors_.push_back(BadDeclaration(*this, m->name, s.message()));
  members_.push_back(std::move(m));
  return *members_.back();
}

void RecordType::Finish(RegID id) {
  id_ = id;
  prototype_ = ops_.create();
  for (const auto& m : members_) {
    // The layout: one wrapper node per leading tag step, shared by siblings.
    const auto steps = SplitDots(m->persist.tag);
    TagNode* node = &layout_;
    bool clash = false;
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const std::string tag = str::to_utf8(steps[i]);
      TagNode* next = nullptr;
      for (auto& c : node->children)
        if (c->tag == tag) next = c.get();
      const bool last = i + 1 == steps.size();
      if (next && (last || next->member)) {
        clash = true;  // two members on one element, or a member used as a wrapper
        break;
      }
      if (!next) {
        node->children.push_back(std::make_unique<TagNode>());
        next = node->children.back().get();
        next->tag = tag;
        next->wtag = steps[i];
        if (last) next->member = m.get();
      }
      node = next;
    }
    if (clash)
      errors_.push_back(BadDeclaration(*this, m->name, L"persisted tag \"" + m->persist.tag +
                                                            L"\" collides with another member"));
    // Scalar defaults are the values of a default-made record, so that a
    // member skipped on write reads back as it was. A declared default must
    // agree with that value.
    if (IsScalar(m->type)) {
      if (void* f = m->access->Field(prototype_)) ScalarCopy(m->type, m->def.Slot(m->type), f);
      else m->access->Load(prototype_, m->def.Slot(m->type));
      if (m->traits.def) {
        ScalarBox declared;
        gtl::status w;
        if (!ParseScalar(m->type, m->traits.enum_table, str::to_utf8(*m->traits.def),
                         declared.Slot(m->type), w) ||
            !ScalarEqual(m->type, declared.Slot(m->type), m->def.Slot(m->type)))
          errors_.push_back(BadDeclaration(
              *this, m->name, L"declared default differs from the record's initial value"));
      }
    }
  }
  std::vector<TagNode*> stack{&layout_};
  while (!stack.empty()) {
    TagNode* n = stack.back();
    stack.pop_back();
    n->Reindex();
    for (auto& c : n->children) stack.push_back(c.get());
  }
}

OCObject& OCObject::operator=(OCObject&& o) noexcept {
  if (this != &o) {
    reset();
    type_ = o.type_;
    p_ = o.p_;
    o.p_ = nullptr;
  }
  return *this;
}

void OCObject::reset() {
  if (p_) type_->Ops().destroy(p_);
  p_ = nullptr;
}

}  // namespace oc
