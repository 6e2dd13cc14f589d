#include "OC/IOC.h"

#include <cmath>

#include "OC/OCError.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"

namespace oc {
namespace {
constexpr unsigned kMsgOutOfBounds = 31005;
constexpr unsigned kMsgNotFinite = 31063;
constexpr unsigned kMsgNulInText = 31065;

bool IsCollection(const Member* m) {
  return m && (m->type == ValueType::Array || m->type == ValueType::Table);
}

std::size_t LiveCount(const Member& m, const void* table) {
  std::size_t n = 0;
  const std::size_t size = m.table->Size(table);
  for (std::size_t id = 1; id <= size; ++id) n += m.table->IsLive(table, static_cast<std::uint32_t>(id));
  return n;
}
}  // namespace

IOC IOC::Record(const RecordType& type, void* rec) {
  IOC n;
  n.kind_ = Kind::Record;
  n.type_ = &type;
  n.obj_ = rec;
  return n;
}

ValueType IOC::Type() const {
  switch (kind_) {
    case Kind::Member: return member_->type;
    case Kind::Element: return member_->element_type;
    default: return ValueType::Struct;
  }
}

std::wstring IOC::Name() const {
  switch (kind_) {
    case Kind::Record: return type_->Name();
    case Kind::Group: return group_->wtag;
    case Kind::Member: return member_->name;
    case Kind::Element: return member_->persist.element_tag;
    default: return {};
  }
}

void* IOC::Storage() const {
  if (kind_ == Kind::Member) return member_->access->Field(obj_);
  if (kind_ == Kind::Element) return member_->seq->At(obj_, index_);
  return nullptr;
}

gtl::status IOC::LoadScalar(ScalarBox& box) const {
  const bool scalar_member = kind_ == Kind::Member && IsScalar(member_->type);
  const bool value_element = kind_ == Kind::Element;
  if (!scalar_member && !value_element)
    return OCError::not_supported(L"Reading a record or collection as a value", where_);
  const ValueType t = Type();
  if (void* p = Storage()) ScalarCopy(t, box.Slot(t), p);
  else member_->access->Load(obj_, box.Slot(t));
  return {};
}

gtl::status IOC::StoreScalar(const ScalarBox& box, ValueType from) {
  ScalarBox probe;
  if (auto s = LoadScalar(probe); s.failed()) return s;
  if (member_->traits.IsReadOnly()) return OCError::not_supported(L"Set", where_);
  const ValueType t = Type();
  ScalarBox v;
  bool ok = false;
  if (from == t) {
    ScalarCopy(t, v.Slot(t), box.Slot(t));
    ok = t != ValueType::Enum || member_->traits.enum_table->Contains(v.i32);
  } else if (from == ValueType::WString) {
    gtl::status warn;
    ok = ParseScalar(t, member_->traits.enum_table, str::to_utf8(box.s), v.Slot(t), warn) &&
         warn.succeeded();
  } else if (from == ValueType::Double) {
    ok = ScalarFromDouble(t, member_->traits.enum_table, box.d, v.Slot(t));
  } else {
    std::int64_t i = 0;
    ok = ScalarToInt64(from, box.Slot(from), i) &&
         ScalarFromInt64(t, member_->traits.enum_table, i, v.Slot(t));
  }
  if (!ok) {
    std::string text;
    FormatScalar(from, nullptr, box.Slot(from), text);
    return OCError::file_assign(str::to_wstring(text), where_);
  }
  const auto& tr = member_->traits;
  if (t == ValueType::WString && v.s.find(L'\0') != std::wstring::npos)
    return gtl::status::error(kMsgNulInText, where_);
  if (t == ValueType::Double && !std::isfinite(v.d) && !tr.AllowsNonFinite()) {
    std::string text;
    FormatScalar(from, nullptr, box.Slot(from), text);
    return gtl::status::error(kMsgNotFinite, str::to_wstring(text), where_);
  }
  if (auto s = CheckBounds(t, v.Slot(t)); s.failed()) return s;
  if (void* p = Storage()) ScalarCopy(t, p, v.Slot(t));
  // A setter may accept a value with a warning (a function text kept as
  // written although it builds no function): the caller hears of it.
  else return member_->access->Store(obj_, v.Slot(t));
  return {};
}

gtl::status IOC::CheckBounds(ValueType type, const void* storage) const {
  const auto& tr = member_->traits;
  double d = 0;
  if (!OutsideBounds(type, storage, tr, d)) return {};
  return gtl::status::error(kMsgOutOfBounds, str::to_wstring(d), where_, tr.min ? str::to_wstring(*tr.min) : L"-inf",
                            tr.max ? str::to_wstring(*tr.max) : L"inf");
}

gtl::status IOC::Get(std::wstring& out) const {
  ScalarBox box;
  if (auto s = LoadScalar(box); s.failed()) return s;
  std::string text;
  FormatScalar(Type(), member_->traits.enum_table, box.Slot(Type()), text);
  out = Type() == ValueType::WString ? box.s : str::to_wstring(text);
  return {};
}

gtl::status IOC::Get(bool& out) const {
  std::int64_t i = 0;
  if (auto s = Get(i); s.failed()) return s;
  if (i != 0 && i != 1) return OCError::file_assign(str::to_wstring(static_cast<long long>(i)), where_);
  out = i != 0;
  return {};
}

gtl::status IOC::Get(std::int64_t& out) const {
  ScalarBox box;
  if (auto s = LoadScalar(box); s.failed()) return s;
  if (!ScalarToInt64(Type(), box.Slot(Type()), out))
    return OCError::not_supported(L"Reading as an integer", where_);
  return {};
}

gtl::status IOC::Get(double& out) const {
  ScalarBox box;
  if (auto s = LoadScalar(box); s.failed()) return s;
  if (!ScalarToDouble(Type(), box.Slot(Type()), out))
    return OCError::not_supported(L"Reading as a number", where_);
  return {};
}

gtl::status IOC::Set(std::wstring_view text) {
  ScalarBox b;
  b.s = std::wstring(text);
  return StoreScalar(b, ValueType::WString);
}
gtl::status IOC::Set(bool v) {
  ScalarBox b;
  b.b = v;
  return StoreScalar(b, ValueType::Bool);
}
gtl::status IOC::Set(std::int64_t v) {
  ScalarBox b;
  b.i64 = v;
  return StoreScalar(b, ValueType::Int64);
}
gtl::status IOC::Set(double v) {
  ScalarBox b;
  b.d = v;
  return StoreScalar(b, ValueType::Double);
}

bool IOC::IsDefault() const {
  switch (kind_) {
    case Kind::Record: return type_->Ops().equal(obj_, type_->Prototype());
    case Kind::Group:
      for (IOC c = begin(); c.IsValid(); c = GetNextSubOC(c))
        if (!c.IsDefault()) return false;
      return true;
    case Kind::Member: {
      const void* proto = member_->access->Field(const_cast<void*>(type_->Prototype()));
      switch (member_->type) {
        case ValueType::Struct: return member_->record().Ops().equal(Storage(), proto);
        case ValueType::Array: return member_->seq->Equal(Storage(), proto);
        case ValueType::Table: return LiveCount(*member_, Storage()) == 0;
        default: {
          ScalarBox box;
          LoadScalar(box);
          return ScalarEqual(member_->type, box.Slot(member_->type), member_->def.Slot(member_->type));
        }
      }
    }
    default: return false;
  }
}

bool IOC::IsUndefined() const {
  ScalarBox box;
  if (kind_ != Kind::Member && kind_ != Kind::Element) return false;
  if (LoadScalar(box).failed()) return false;
  switch (Type()) {
    case ValueType::Double: return box.d == qvi::kNoValue;
    case ValueType::Enum:
    case ValueType::Int32: return box.i32 == qvi::kNone;
    case ValueType::UInt32: return box.u32 == 0;
    default: return false;
  }
}

gtl::status IOC::Clear() {
  switch (kind_) {
    case Kind::Record: type_->Ops().copy(obj_, type_->Prototype()); return {};
    case Kind::Group:
      for (IOC c = begin(); c.IsValid(); c = GetNextSubOC(c)) c.Clear();
      return {};
    case Kind::Member: {
      const void* proto = member_->access->Field(const_cast<void*>(type_->Prototype()));
      switch (member_->type) {
        case ValueType::Struct: member_->record().Ops().copy(Storage(), proto); return {};
        case ValueType::Array: member_->seq->Copy(Storage(), proto); return {};
        case ValueType::Table: member_->table->Clear(Storage()); return {};
        default:
          if (void* p = Storage()) ScalarCopy(member_->type, p, member_->def.Slot(member_->type));
          else return member_->access->Store(obj_, member_->def.Slot(member_->type));
          return {};
      }
    }
    case Kind::Element: return OCError::not_supported(L"Clearing one element", where_);
    default: return OCError::not_recognized(L"(invalid node)", where_);
  }
}

std::size_t IOC::Length() const {
  switch (kind_) {
    case Kind::Record: return type_->Layout().children.size();
    case Kind::Group: return group_->children.size();
    case Kind::Member:
      switch (member_->type) {
        case ValueType::Array: return member_->seq->Size(Storage());
        case ValueType::Table: return LiveCount(*member_, Storage());
        case ValueType::Struct: return member_->record().Layout().children.size();
        case ValueType::WString: {
          ScalarBox box;
          LoadScalar(box);
          return box.s.size();
        }
        default: return 1;
      }
    case Kind::Element:
      return member_->element_type == ValueType::WString
                 ? static_cast<const std::wstring*>(Storage())->size()
                 : 1;
    default: return 0;
  }
}

IOC IOC::ChildOf(const TagNode& node) const {
  IOC c;
  c.type_ = type_;
  c.obj_ = obj_;
  if (node.member) {
    c.kind_ = Kind::Member;
    c.member_ = node.member;
  } else {
    c.kind_ = Kind::Group;
    c.group_ = &node;
  }
  c.where_ = where_.empty() ? node.wtag : where_ + L"." + node.wtag;
  return c;
}

IOC IOC::Child(std::size_t pos) const {
  const TagNode* parent = nullptr;
  if (kind_ == Kind::Record) parent = &type_->Layout();
  else if (kind_ == Kind::Group) parent = group_;
  else if (kind_ == Kind::Member && member_->type == ValueType::Struct)
    return Record(member_->record(), Storage()).Child(pos);
  if (!parent || pos >= parent->children.size()) return {};
  IOC c = ChildOf(*parent->children[pos]);
  c.index_ = pos;
  return c;
}

IOC IOC::begin() const {
  if (IsCollection(member_) && kind_ == Kind::Member) {
    if (member_->type == ValueType::Array) return At(0);
    const std::size_t size = member_->table->Size(Storage());
    for (std::uint32_t id = 1; id <= size; ++id)
      if (member_->table->IsLive(Storage(), id)) return At(id);
    return {};
  }
  return Child(0);
}

IOC IOC::GetNextSubOC(const IOC& child) const {
  if (kind_ == Kind::Member && IsCollection(member_)) {
    if (member_->type == ValueType::Array) return At(child.index_ + 1);
    const std::size_t size = member_->table->Size(Storage());
    for (std::uint64_t id = child.index_ + 1; id <= size; ++id)
      if (member_->table->IsLive(Storage(), static_cast<std::uint32_t>(id))) return At(id);
    return {};
  }
  return Child(child.index_ + 1);
}

IOC IOC::GetSubOCByTag(std::wstring_view tag) const {
  if (kind_ == Kind::Member && member_->type == ValueType::Struct) {
    IOC r = Record(member_->record(), Storage());
    r.where_ = where_;
    return r.GetSubOCByTag(tag);
  }
  const TagNode* parent = kind_ == Kind::Record ? &type_->Layout() : kind_ == Kind::Group ? group_ : nullptr;
  if (!parent) return {};
  const TagNode* c = parent->Child(str::to_utf8(tag));
  if (!c) return {};
  for (std::size_t i = 0; i < parent->children.size(); ++i)
    if (parent->children[i].get() == c) {
      IOC n = ChildOf(*c);
      n.index_ = i;
      return n;
    }
  return {};
}

IOC IOC::GetSubOC(std::wstring_view name) const {
  if (kind_ == Kind::Member && member_->type == ValueType::Struct) {
    IOC r = Record(member_->record(), Storage());
    r.where_ = where_;
    return r.GetSubOC(name);
  }
  if (kind_ == Kind::Record) {
    if (const oc::Member* m = type_->FindMember(name)) {
      IOC c;
      c.kind_ = Kind::Member;
      c.type_ = type_;
      c.obj_ = obj_;
      c.member_ = m;
      c.where_ = where_.empty() ? m->name : where_ + L"." + m->name;
      // Its position among the layout's children, when it is a direct one.
      const auto& kids = type_->Layout().children;
      for (std::size_t i = 0; i < kids.size(); ++i)
        if (kids[i]->member == m) c.index_ = i;
      return c;
    }
  }
  return GetSubOCByTag(name);
}

IOC IOC::At(std::uint64_t index) const {
  if (kind_ != Kind::Member || !IsCollection(member_)) return {};
  void* coll = Storage();
  IOC c;
  c.where_ = where_ + L"[" + str::to_wstring(static_cast<unsigned long long>(index)) + L"]";
  c.index_ = index;
  if (member_->type == ValueType::Table) {
    if (index > UINT32_MAX || !member_->table->IsLive(coll, static_cast<std::uint32_t>(index)))
      return {};
    c.kind_ = Kind::Record;
    c.type_ = &member_->record();
    c.obj_ = member_->table->At(coll, static_cast<std::uint32_t>(index));
    return c;
  }
  if (index >= member_->seq->Size(coll)) return {};
  if (member_->element_type == ValueType::Struct) {
    c.kind_ = Kind::Record;
    c.type_ = &member_->record();
    c.obj_ = member_->seq->At(coll, index);
  } else {
    c.kind_ = Kind::Element;
    c.type_ = type_;
    c.obj_ = coll;
    c.member_ = member_;
  }
  return c;
}

gtl::status IOC::Assign(const IOC& other) {
  if (kind_ != other.kind_ || member_ != other.member_ ||
      (kind_ == Kind::Record && type_ != other.type_))
    return OCError::not_supported(L"Assigning a node of another declaration", where_);
  switch (kind_) {
    case Kind::Record: type_->Ops().copy(obj_, other.obj_); return {};
    case Kind::Member:
      switch (member_->type) {
        case ValueType::Struct: member_->record().Ops().copy(Storage(), other.Storage()); return {};
        case ValueType::Array: member_->seq->Copy(Storage(), other.Storage()); return {};
        case ValueType::Table: member_->table->Copy(Storage(), other.Storage()); return {};
        default: break;
      }
      [[fallthrough]];
    case Kind::Element: {
      ScalarBox box;
      other.LoadScalar(box);
      if (void* p = Storage()) ScalarCopy(Type(), p, box.Slot(Type()));
      else return member_->access->Store(obj_, box.Slot(Type()));
      return {};
    }
    default: return OCError::not_supported(L"Assigning a wrapper element", where_);
  }
}

OCObject IOC::Clone() const {
  if (kind_ != Kind::Record) return {};
  OCObject o(*type_);
  type_->Ops().copy(o.get(), obj_);
  return o;
}

OCObject IOC::EmptyClone() const {
  if (kind_ != Kind::Record) return {};
  return OCObject(*type_);
}

std::wstring PrettyPrintValue(const IOC& node) {
  if (node.kind() != IOC::Kind::Member && node.kind() != IOC::Kind::Element) return node.Name();
  if (!IsScalar(node.Type())) return node.Name() + L" (" + str::to_wstring(static_cast<unsigned long long>(node.Length())) + L")";
  if (node.IsUndefined()) return L"(none)";
  std::wstring text;
  node.Get(text);
  const auto& units = node.Template()->traits.units;
  return units.empty() ? text : text + L" " + units;
}

}  // namespace oc
