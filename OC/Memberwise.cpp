// Copy, move and comparison of a record through its declarations, for
// record types that are not plain values themselves (the document owns a
// container manager and registrations that must stay with the object).
#include "OC/Schema.h"

namespace oc::detail {

void MemberwiseCopy(const RecordType& type, void* dst, const void* src) {
  void* s = const_cast<void*>(src);  // fields are only read
  for (const auto& m : type.Members()) {
    switch (m->type) {
      case ValueType::Struct: m->record().Ops().copy(m->access->Field(dst), m->access->Field(s)); break;
      case ValueType::Array: m->seq->Copy(m->access->Field(dst), m->access->Field(s)); break;
      case ValueType::Table: m->table->Copy(m->access->Field(dst), m->access->Field(s)); break;
      default:
        if (void* f = m->access->Field(dst)) {
          ScalarCopy(m->type, f, m->access->Field(s));
        } else {
          ScalarBox box;
          m->access->Load(src, box.Slot(m->type));
          (void)m->access->Store(dst, box.Slot(m->type));  // the value came from a live record
        }
    }
  }
}

void MemberwiseMove(const RecordType& type, void* dst, void* src) {
  for (const auto& m : type.Members()) {
    switch (m->type) {
      case ValueType::Struct: m->record().Ops().move(m->access->Field(dst), m->access->Field(src)); break;
      case ValueType::Array: m->seq->Move(m->access->Field(dst), m->access->Field(src)); break;
      case ValueType::Table: m->table->Move(m->access->Field(dst), m->access->Field(src)); break;
      default: break;
    }
  }
  // Scalars after the collections: an accessor may read a collection.
  for (const auto& m : type.Members()) {
    if (!IsScalar(m->type)) continue;
    if (void* f = m->access->Field(dst)) {
      ScalarCopy(m->type, f, m->access->Field(src));
    } else {
      ScalarBox box;
      m->access->Load(src, box.Slot(m->type));
      (void)m->access->Store(dst, box.Slot(m->type));
    }
  }
}

bool MemberwiseEqual(const RecordType& type, const void* a, const void* b) {
  void* pa = const_cast<void*>(a);  // fields are only read
  void* pb = const_cast<void*>(b);
  for (const auto& m : type.Members()) {
    bool same = true;
    switch (m->type) {
      case ValueType::Struct: same = m->record().Ops().equal(m->access->Field(pa), m->access->Field(pb)); break;
      case ValueType::Array: same = m->seq->Equal(m->access->Field(pa), m->access->Field(pb)); break;
      case ValueType::Table: same = m->table->Equal(m->access->Field(pa), m->access->Field(pb)); break;
      default: {
        ScalarBox x, y;
        if (const void* f = m->access->Field(pa)) ScalarCopy(m->type, x.Slot(m->type), f);
        else m->access->Load(a, x.Slot(m->type));
        if (const void* f = m->access->Field(pb)) ScalarCopy(m->type, y.Slot(m->type), f);
        else m->access->Load(b, y.Slot(m->type));
        same = ScalarEqual(m->type, x.Slot(m->type), y.Slot(m->type));
      }
    }
    if (!same) return false;
  }
  return true;
}

}  // namespace oc::detail
