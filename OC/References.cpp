#include "OC/References.h"

#include <algorithm>
#include <memory>
#include <unordered_map>

#include "QVI/str/Convert.h"

namespace oc {

// One member of a record type that holds, or leads to, references.
struct RefStep {
  enum Kind : std::uint8_t {
    Number,     // a record number
    Numbers,    // a list of record numbers
    MapValues,  // a key map whose values are record numbers
    Hook,       // a value holding references of its own (RefsIn)
    Record,     // a nested record holding references
    Records,    // a list of records holding references
    Table,      // a table of records holding references
  };
  Kind kind = Number;
  const Member* m = nullptr;
  std::ptrdiff_t offset = -1;      // Number: the field's offset when it is fixed
  std::uint32_t collection = 0;    // Number, Numbers, MapValues
  const Member* via = nullptr;     // Number: the member naming the collection
  std::ptrdiff_t via_offset = -1;  // its fixed offset
  bool drop = false;               // Number: DropWhenGone
  const RefPlan* sub = nullptr;    // Record, Records, Table
};

class RefPlan {
 public:
  std::vector<RefStep> steps;
  std::vector<std::uint32_t> targets;  // ascending, unique
  bool any = false;                    // a reference names its collection itself
  const Member* key = nullptr;         // the member declared Key
  const Member* deleted = nullptr;     // the bool declared Deleted
  bool building = true;
};

namespace {

using Plans = std::unordered_map<const RecordType*, std::unique_ptr<RefPlan>>;
Plans& AllPlans() {
  static Plans plans;
  return plans;
}

// The plan of the elements of a list of numbers or a key map declared Ref:
// one per member, made on first use.
using MemberPlans = std::unordered_map<const Member*, std::unique_ptr<RefPlan>>;
MemberPlans& AllMemberPlans() {
  static MemberPlans plans;
  return plans;
}

const RefPlan& EmptyPlan() {
  static const RefPlan empty = [] {
    RefPlan p;
    p.building = false;
    return p;
  }();
  return empty;
}

std::ptrdiff_t FixedOffset(const Member& m, const RecordType& type) {
  if (!m.access->IsFixedOffset()) return -1;
  char* proto = static_cast<char*>(const_cast<void*>(type.Prototype()));
  return static_cast<char*>(m.access->Field(proto)) - proto;
}

void AddTarget(RefPlan& p, std::uint32_t c) {
  auto it = std::lower_bound(p.targets.begin(), p.targets.end(), c);
  if (it == p.targets.end() || *it != c) p.targets.insert(it, c);
}

void Absorb(RefPlan& p, const RefPlan& sub) {
  for (std::uint32_t c : sub.targets) AddTarget(p, c);
  p.any = p.any || sub.any;
}

// A sub-plan still being built belongs to a type that contains itself: it
// is kept, since it may yet gain references.
bool Worth(const RefPlan& sub) { return sub.building || HasRefs(sub); }

void Build(const RecordType& type, RefPlan& plan) {
  for (const auto& mp : type.Members()) {
    const Member& m = *mp;
    // A legacy member is a second name of a field declared again: walking
    // it too would renumber the field twice.
    if (m.traits.IsLegacy()) continue;
    if ((m.traits.flags & meta::MetaDataTraits::Key) != 0) plan.key = &m;
    if ((m.traits.flags & meta::MetaDataTraits::Deleted) != 0 && m.type == ValueType::Bool)
      plan.deleted = &m;
    RefStep st;
    st.m = &m;
    if (m.traits.refs_in) {
      st.kind = RefStep::Hook;
      plan.any = true;
      plan.steps.push_back(st);
      continue;
    }
    if (IsScalar(m.type)) {
      if (m.traits.ref == 0 && m.traits.ref_via.empty()) continue;
      st.kind = RefStep::Number;
      st.offset = FixedOffset(m, type);
      st.collection = m.traits.ref;
      st.drop = (m.traits.flags & meta::MetaDataTraits::DropWhenGone) != 0;
      if (!m.traits.ref_via.empty()) {
        st.via = type.FindMember(m.traits.ref_via);
        if (!st.via || st.via->type != ValueType::UInt32) continue;  // a declaration problem
        st.via_offset = FixedOffset(*st.via, type);
        plan.any = true;
      } else {
        AddTarget(plan, st.collection);
      }
      plan.steps.push_back(st);
      continue;
    }
    if (m.type == ValueType::Array && m.traits.ref != 0) {
      st.kind = m.element_type == ValueType::Struct ? RefStep::MapValues : RefStep::Numbers;
      st.collection = m.traits.ref;
      AddTarget(plan, st.collection);
      plan.steps.push_back(st);
      continue;
    }
    if (!m.record) continue;
    const RefPlan& sub = RefPlanOf(m.record());
    if (!Worth(sub)) continue;
    st.kind = m.type == ValueType::Struct ? RefStep::Record
              : m.type == ValueType::Table ? RefStep::Table
                                           : RefStep::Records;
    st.sub = &sub;
    Absorb(plan, sub);
    plan.steps.push_back(st);
  }
}

// Hands the references a RefsIn hook reports to the visitor.
class HookSink final : public RefSink {
 public:
  HookSink(RefVisitor& v, const Member& m) : v_(v), m_(m) {}
  std::uint32_t Visit(std::uint32_t collection, std::uint32_t value) override {
    if (value == 0 || collection == 0 || !v_.Wants(collection)) return value;
    return v_.Visit(RefSite{&m_, collection}, value);
  }

 private:
  RefVisitor& v_;
  const Member& m_;
};

}  // namespace

std::wstring RefVisitor::Path() const {
  std::wstring out;
  for (const Frame& f : frames_) {
    if (f.member) {
      if (!out.empty()) out += L'.';
      out += f.member->persist.tag;
    }
    if (f.has_index) out += L"[" + str::to_wstring(static_cast<unsigned long long>(f.index)) + L"]";
  }
  return out;
}

class RefWalker {
 public:
  explicit RefWalker(RefVisitor& v) : v_(v), track_(v.track_path_) {}

  bool Record(const RefPlan& plan, char* rec) {
    if (plan.deleted && *static_cast<const bool*>(plan.deleted->access->Field(rec))) return false;
    bool drop = false;
    for (const RefStep& st : plan.steps) {
      switch (st.kind) {
        case RefStep::Number: drop = Number(st, rec) || drop; break;
        case RefStep::Numbers:
        case RefStep::MapValues:
          if (v_.Wants(st.collection)) List(*st.m, st.m->access->Field(rec), nullptr, false);
          break;
        case RefStep::Hook: {
          Push(st.m, 0, false);
          HookSink sink(v_, *st.m);
          st.m->traits.refs_in(rec, sink);
          Pop();
          break;
        }
        case RefStep::Record:
          Push(st.m, 0, false);
          drop = Record(*st.sub, static_cast<char*>(st.m->access->Field(rec))) || drop;
          Pop();
          break;
        case RefStep::Records:
          List(*st.m, st.m->access->Field(rec), st.sub, false);
          break;
        case RefStep::Table: Table(*st.m, st.m->access->Field(rec), *st.sub, false); break;
      }
    }
    return drop;
  }

  // The elements of a list at `field`: records walked by `sub`, or numbers
  // (a list of numbers, or a key map's values) when `sub` is null. Elements
  // that are to go are squeezed out, order kept.
  void List(const Member& m, void* field, const RefPlan* sub, bool top) {
    const SequenceOps& seq = *m.seq;
    const std::size_t n = seq.Size(field);
    const bool resizable = seq.MaxSize() == static_cast<std::size_t>(-1);
    std::size_t w = 0;
    for (std::size_t i = 0; i < n; ++i) {
      char* elem = static_cast<char*>(seq.At(field, i));
      Push(&m, i, true);
      bool drop = false;
      if (sub) {
        if (top) v_.OnElement(Holder(*sub, elem, i));
        drop = Record(*sub, elem);
      } else {
        std::uint32_t* key = seq.EntryKey(elem);
        std::uint32_t* value = key ? seq.EntryValue(elem) : static_cast<std::uint32_t*>(static_cast<void*>(elem));
        if (top) v_.OnElement(key ? *key : static_cast<std::uint32_t>(i + 1));
        if (value && *value != 0) {
          *value = v_.Visit(RefSite{&m, m.traits.ref}, *value);
          drop = *value == 0;
        }
      }
      Pop();
      if (drop && resizable) continue;
      if (w != i) seq.MoveElement(field, w, i);
      ++w;
    }
    if (w != n) seq.Resize(field, w);
  }

  void Table(const Member& m, void* field, const RefPlan& sub, bool top) {
    const TableOps& t = *m.table;
    const std::size_t size = t.Size(field);
    for (std::uint32_t id = 1; id <= size; ++id) {
      if (!t.IsLive(field, id)) continue;
      Push(&m, id, true);
      if (top) v_.OnElement(id);
      Record(sub, static_cast<char*>(t.At(field, id)));  // a table's records stay
      Pop();
    }
  }

 private:
  static std::uint32_t Holder(const RefPlan& sub, char* elem, std::size_t i) {
    if (!sub.key || sub.key->type != ValueType::UInt32) return static_cast<std::uint32_t>(i + 1);
    return *static_cast<const std::uint32_t*>(sub.key->access->Field(elem));
  }

  static std::uint32_t Read(const Member& m, std::ptrdiff_t offset, char* rec) {
    if (offset >= 0) return *reinterpret_cast<const std::uint32_t*>(rec + offset);
    if (const void* f = m.access->Field(rec)) return *static_cast<const std::uint32_t*>(f);
    std::uint32_t v = 0;
    m.access->Load(rec, &v);
    return v;
  }

  bool Number(const RefStep& st, char* rec) {
    const std::uint32_t c = st.via ? Read(*st.via, st.via_offset, rec) : st.collection;
    if (c == 0 || !v_.Wants(c)) return false;
    const std::uint32_t value = Read(*st.m, st.offset, rec);
    if (value == 0) return false;
    Push(st.m, 0, false);
    const std::uint32_t now = v_.Visit(RefSite{st.m, c}, value);
    Pop();
    if (now == value) return false;
    if (st.offset >= 0) *reinterpret_cast<std::uint32_t*>(rec + st.offset) = now;
    else if (void* f = st.m->access->Field(rec)) *static_cast<std::uint32_t*>(f) = now;
    else (void)st.m->access->Store(rec, &now);
    return now == 0 && st.drop;
  }

  void Push(const Member* m, std::uint64_t index, bool has_index) {
    if (track_) v_.frames_.push_back({m, index, has_index});
  }
  void Pop() {
    if (track_) v_.frames_.pop_back();
  }

  RefVisitor& v_;
  bool track_;
};

const RefPlan& RefPlanOf(const RecordType& type) {
  Plans& plans = AllPlans();
  if (auto it = plans.find(&type); it != plans.end()) return *it->second;
  RefPlan& plan = *plans.emplace(&type, std::make_unique<RefPlan>()).first->second;
  Build(type, plan);
  plan.building = false;
  return plan;
}

const RefPlan& OwnRefPlanOf(const RecordType& type) {
  static Plans own;
  if (auto it = own.find(&type); it != own.end()) return *it->second;
  const RefPlan& full = RefPlanOf(type);
  auto p = std::make_unique<RefPlan>();
  for (const RefStep& st : full.steps) {
    if (st.m->traits.collection != 0 || st.kind == RefStep::Table) continue;
    p->steps.push_back(st);
    if (st.kind == RefStep::Hook || st.via) p->any = true;
    else if (st.sub) Absorb(*p, *st.sub);
    else AddTarget(*p, st.collection);
  }
  p->key = full.key;
  p->deleted = full.deleted;
  p->building = false;
  return *own.emplace(&type, std::move(p)).first->second;
}

bool HasRefs(const RefPlan& plan) { return !plan.steps.empty(); }

const std::vector<std::uint32_t>& RefTargets(const RefPlan& plan, bool& any) {
  any = plan.any;
  return plan.targets;
}

const Member* RefKey(const RefPlan& plan) { return plan.key; }

bool ForEachRef(const RefPlan& plan, void* rec, RefVisitor& visitor) {
  return RefWalker(visitor).Record(plan, static_cast<char*>(rec));
}

const RefPlan& ElementRefPlan(const Member& m) {
  if ((m.type == ValueType::Array || m.type == ValueType::Table) && m.element_type == ValueType::Struct &&
      m.traits.ref == 0)
    return m.record ? RefPlanOf(m.record()) : EmptyPlan();
  if (m.type != ValueType::Array || m.traits.ref == 0) return EmptyPlan();
  MemberPlans& plans = AllMemberPlans();
  if (auto it = plans.find(&m); it != plans.end()) return *it->second;
  auto p = std::make_unique<RefPlan>();
  RefStep st;
  st.kind = m.element_type == ValueType::Struct ? RefStep::MapValues : RefStep::Numbers;
  st.m = &m;
  st.collection = m.traits.ref;
  p->steps.push_back(st);
  p->targets.push_back(m.traits.ref);
  p->building = false;
  return *plans.emplace(&m, std::move(p)).first->second;
}

namespace {
// Element `index` of collection member `m` at `field` (a table by ID, a
// list by position), or nullptr.
void* ElementAt(const Member& m, void* field, std::uint64_t index) {
  if (m.table) {
    const auto id = static_cast<std::uint32_t>(index);
    return id == index && m.table->IsLive(field, id) ? m.table->At(field, id) : nullptr;
  }
  if (m.seq && index < m.seq->Size(field)) return m.seq->At(field, static_cast<std::size_t>(index));
  return nullptr;
}
}  // namespace

namespace {
// Follows frames [first, count) from `at`, a record.
void* FollowFrames(void* at, const std::vector<RefVisitor::Frame>& frames, std::size_t first, std::size_t count) {
  for (std::size_t k = first; at && k < count; ++k) {
    const RefVisitor::Frame& f = frames[k];
    if (!f.member || f.member->traits.refs_in) return nullptr;  // a hook's references have no field
    void* inner = f.member->access ? f.member->access->Field(at) : nullptr;
    if (!inner) return nullptr;
    at = f.has_index ? ElementAt(*f.member, inner, f.index) : inner;
  }
  return at;
}

std::uint32_t* NumberAt(void* at, const std::vector<RefVisitor::Frame>& frames) {
  if (!at) return nullptr;
  // A key map's entry holds its number beside its key.
  const RefVisitor::Frame& last = frames.back();
  if (last.has_index && last.member->seq)
    if (std::uint32_t* value = last.member->seq->EntryValue(at)) return value;
  return static_cast<std::uint32_t*>(at);
}
}  // namespace

void* RefTarget(const Member& m, void* field, const std::vector<RefVisitor::Frame>& frames,
                std::size_t count) {
  if (count == 0 || count > frames.size() || frames[0].member != &m || !frames[0].has_index) return nullptr;
  return FollowFrames(ElementAt(m, field, frames[0].index), frames, 1, count);
}

void* RefTargetInRecord(void* record, const std::vector<RefVisitor::Frame>& frames, std::size_t count) {
  if (count == 0 || count > frames.size()) return nullptr;
  return FollowFrames(record, frames, 0, count);
}

std::uint32_t* RefAt(const Member& m, void* field, const std::vector<RefVisitor::Frame>& frames) {
  return NumberAt(RefTarget(m, field, frames, frames.size()), frames);
}

std::uint32_t* RefAtInRecord(void* record, const std::vector<RefVisitor::Frame>& frames) {
  return NumberAt(RefTargetInRecord(record, frames, frames.size()), frames);
}

void ForEachRefIn(const Member& m, void* field, RefVisitor& visitor) {
  RefWalker w(visitor);
  if (m.type == ValueType::Table) {
    const RefPlan& sub = RefPlanOf(m.record());
    if (HasRefs(sub)) w.Table(m, field, sub, true);
  } else if (m.type == ValueType::Array) {
    if (m.traits.ref != 0) {
      if (visitor.Wants(m.traits.ref)) w.List(m, field, nullptr, true);
    } else if (m.element_type == ValueType::Struct) {
      const RefPlan& sub = RefPlanOf(m.record());
      if (HasRefs(sub)) w.List(m, field, &sub, true);
    }
  }
}

}  // namespace oc
