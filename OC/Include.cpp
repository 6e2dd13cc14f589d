// A record that includes another at its own level: each member of the part
// is declared again for the including type with accessors and collection
// operations that go through the part, so that reading, writing, paths and
// comparison need nothing new.
#include "OC/Schema.h"

namespace oc {
namespace {

class IncludedAccess final : public Accessor {
 public:
  IncludedAccess(std::shared_ptr<const Accessor> reach, const Accessor& inner) : reach_(std::move(reach)), inner_(inner) {}
  void* Field(void* rec) const override { return inner_.Field(reach_->Field(rec)); }
  void Load(const void* rec, void* value) const override {
    inner_.Load(reach_->Field(const_cast<void*>(rec)), value);
  }
  gtl::status Store(void* rec, const void* value) const override { return inner_.Store(reach_->Field(rec), value); }

 private:
  std::shared_ptr<const Accessor> reach_;
  const Accessor& inner_;
};

// The part's own operations, which live as long as the registry.
class ForwardSequence final : public SequenceOps {
 public:
  explicit ForwardSequence(const SequenceOps& o) : o_(o) {}
  std::size_t Size(const void* s) const override { return o_.Size(s); }
  void Resize(void* s, std::size_t n) const override { o_.Resize(s, n); }
  void* At(void* s, std::size_t i) const override { return o_.At(s, i); }
  bool Equal(const void* a, const void* b) const override { return o_.Equal(a, b); }
  void Copy(void* d, const void* s) const override { o_.Copy(d, s); }
  void Move(void* d, void* s) const override { o_.Move(d, s); }
  void MoveElement(void* s, std::size_t d, std::size_t f) const override { o_.MoveElement(s, d, f); }
  std::uint32_t* EntryKey(void* e) const override { return o_.EntryKey(e); }
  std::uint32_t* EntryValue(void* e) const override { return o_.EntryValue(e); }
  std::size_t MaxSize() const override { return o_.MaxSize(); }
  gtl::status Finish(void* s, std::size_t n) const override { return o_.Finish(s, n); }

 private:
  const SequenceOps& o_;
};

class ForwardTable final : public TableOps {
 public:
  explicit ForwardTable(const TableOps& o) : o_(o) {}
  std::size_t Size(const void* t) const override { return o_.Size(t); }
  bool IsLive(const void* t, std::uint32_t id) const override { return o_.IsLive(t, id); }
  void* At(void* t, std::uint32_t id) const override { return o_.At(t, id); }
  void Clear(void* t) const override { o_.Clear(t); }
  void Place(void* t, std::uint32_t id, void* rec) const override { o_.Place(t, id, rec); }
  void* OpenSlot(void* t, std::uint32_t id) const override { return o_.OpenSlot(t, id); }
  void SealSlot(void* t, std::uint32_t id) const override { o_.SealSlot(t, id); }
  void ReserveCapacity(void* t, std::size_t n) const override { o_.ReserveCapacity(t, n); }
  std::size_t SlotBytes() const override { return o_.SlotBytes(); }
  void Copy(void* d, const void* s) const override { o_.Copy(d, s); }
  void Move(void* d, void* s) const override { o_.Move(d, s); }
  bool Equal(const void* a, const void* b) const override { return o_.Equal(a, b); }

 private:
  const TableOps& o_;
};

}  // namespace

void IncludeMembers(RecordType& into, const RecordType& part, std::shared_ptr<const Accessor> reach) {
  for (const auto& pm : part.Members()) {
    auto m = std::make_unique<Member>();
    m->name = pm->name;
    m->persist = pm->persist;
    m->traits = pm->traits;
    m->type = pm->type;
    m->element_type = pm->element_type;
    m->record = pm->record;
    m->access = std::make_unique<IncludedAccess>(reach, *pm->access);
    if (pm->seq) m->seq = std::make_unique<ForwardSequence>(*pm->seq);
    if (pm->table) m->table = std::make_unique<ForwardTable>(*pm->table);
    into.AddMember(std::move(m));
  }
}

}  // namespace oc
