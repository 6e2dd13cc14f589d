#pragma once
// The type-erased core of the framework: a record type is a list of member
// declarations and the persisted layout built from their tags. Everything
// else (XML reading and writing, paths, values, cloning) works from these
// declarations; no code anywhere lists a record's members a second time.
//
// Declarations are made through oc::Schema<T> (Schema.h), which instantiates
// the small typed pieces below (Accessor, SequenceOps, TableOps); the rest
// of the framework is ordinary compiled code over void pointers.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "OC/MetaTraits.h"
#include "OC/Scalar.h"

namespace oc {

class RecordType;
// A declaration's identifier in the registry; 0 means none.
using RegID = std::uint32_t;
// Resolves a record type on first use, so that types may refer to each other
// (and to themselves) in any order of static initialisation.
using TypeRef = const RecordType& (*)();

// Reaches a scalar or nested member in a live record.
class Accessor {
 public:
  virtual ~Accessor() = default;
  // The member's storage inside `rec`; nullptr for getter/setter members.
  virtual void* Field(void* rec) const = 0;
  // True when Field is the same offset into every record of the type (a
  // plain data member), so that hot loops may add the offset themselves.
  virtual bool IsFixedOffset() const { return false; }
  // Getter/setter members: copies the value to and from a value of the
  // storage type (see ScalarBox).
  virtual void Load(const void* rec, void* value) const { (void)rec; (void)value; }
  // A setter that checks its value (a function's text form) may refuse it;
  // the status says why, and the reader reports it with the path and line.
  virtual gtl::status Store(void* rec, const void* value) const {
    (void)rec;
    (void)value;
    return {};
  }
};

// Operations on a std::vector member (records or values).
class SequenceOps {
 public:
  virtual ~SequenceOps() = default;
  virtual std::size_t Size(const void* seq) const = 0;
  virtual void Resize(void* seq, std::size_t n) const = 0;
  virtual void* At(void* seq, std::size_t i) const = 0;
  virtual bool Equal(const void* a, const void* b) const = 0;
  virtual void Copy(void* dst, const void* src) const = 0;
  virtual void Move(void* dst, void* src) const = 0;
  // Moves element `src` onto element `dst` (removing elements in place).
  virtual void MoveElement(void* seq, std::size_t dst, std::size_t src) const = 0;
  // A key map's entry: where its key is, and where its value is when that
  // is a record number (nullptr otherwise, and for other collections).
  virtual std::uint32_t* EntryKey(void* elem) const {
    (void)elem;
    return nullptr;
  }
  virtual std::uint32_t* EntryValue(void* elem) const {
    (void)elem;
    return nullptr;
  }
  // The most elements the collection holds (a fixed-length array); a read
  // that finds more is an error naming the collection.
  virtual std::size_t MaxSize() const { return static_cast<std::size_t>(-1); }
  // Called once a read has filled the collection with `read` elements: a
  // collection with an order of its own (a key map) restores it here. A
  // warning or error says what had to be changed; the reader reports it with
  // the collection's path and line.
  virtual gtl::status Finish(void* seq, std::size_t read) const {
    (void)seq;
    (void)read;
    return {};
  }
};

// Operations on an identified record table. IDs are one-based slots.
class TableOps {
 public:
  virtual ~TableOps() = default;
  // The slot count (the highest ID in use).
  virtual std::size_t Size(const void* table) const = 0;
  virtual bool IsLive(const void* table, std::uint32_t id) const = 0;
  virtual void* At(void* table, std::uint32_t id) const = 0;
  virtual void Clear(void* table) const = 0;
  // Grows the table with tombstones up to `id` and moves `rec` into slot
  // `id` (setting a stored ID). The slot must not hold a live record.
  virtual void Place(void* table, std::uint32_t id, void* rec) const = 0;
  // Grows the table with tombstones up to `id` and returns slot `id`, for a
  // reader to build a record in its final place; SealSlot then sets a
  // stored ID. The slot must not hold a live record.
  virtual void* OpenSlot(void* table, std::uint32_t id) const = 0;
  virtual void SealSlot(void* table, std::uint32_t id) const = 0;
  // Makes room for `n` slots ahead of placing records one by one (a hint:
  // the slot count does not change).
  virtual void ReserveCapacity(void* table, std::size_t n) const {
    (void)table;
    (void)n;
  }
  // The memory one slot takes, live or not (a tombstone is a whole record).
  virtual std::size_t SlotBytes() const = 0;
  virtual void Copy(void* dst, const void* src) const = 0;
  virtual void Move(void* dst, void* src) const = 0;
  virtual bool Equal(const void* a, const void* b) const = 0;
};

// One declared member.
struct Member {
  RegID id = 0;                       // registry id, set when the type is registered
  const RecordType* owner = nullptr;  // the declaring record type
  std::wstring name;                  // C++ member name ("fTolerance_")
  meta::MetaPersistTraits persist;    // persisted tag (possibly dotted) and element tag
  meta::MetaDataTraits traits;
  ValueType type = ValueType::Double;
  ValueType element_type = ValueType::Struct;  // Array/Table: type of one element
  TypeRef record = nullptr;  // Struct, or the element record of Array/Table
  std::unique_ptr<Accessor> access;
  std::unique_ptr<SequenceOps> seq;   // Array
  std::unique_ptr<TableOps> table;    // Table
  std::wstring last_tag;              // last step of persist.tag
  std::string tag_utf8;               // last_tag in UTF-8 (element name)
  std::string element_tag_utf8;       // persist.element_tag in UTF-8
  ScalarBox def;                      // scalar members: the default value

  // The type of the values the member holds (its own type, or its elements').
  ValueType ScalarType() const { return type == ValueType::Array ? element_type : type; }
  // True when the member is a collection whose elements are records.
  bool HoldsRecords() const {
    return type == ValueType::Table || (type == ValueType::Array && element_type == ValueType::Struct);
  }
};

// A node of the persisted layout: a wrapper element shared by members whose
// tags begin alike, or a member's own element.
struct TagNode {
  std::string tag;                 // element name, UTF-8 (empty at a record's root)
  std::wstring wtag;               // the same, wide
  const Member* member = nullptr;  // set on a member's element
  std::size_t rank = 0;            // position among its siblings (write order)
  std::vector<std::unique_ptr<TagNode>> children;  // in write order

  // The child with element name `tag`, or nullptr.
  const TagNode* Child(std::string_view tag) const;
  // Rebuilds the name index after children were added or reordered.
  void Reindex();

 private:
  std::unordered_map<std::string_view, std::size_t> index_;
};

// Copy, move, compare, make and destroy a record of the type.
struct RecordOps {
  void* (*create)() = nullptr;
  void (*destroy)(void*) = nullptr;
  void (*copy)(void* dst, const void* src) = nullptr;
  void (*move)(void* dst, void* src) = nullptr;
  bool (*equal)(const void* a, const void* b) = nullptr;
};

class RecordType {
 public:
  RecordType(std::wstring name, RecordOps ops);
  ~RecordType();
  RecordType(const RecordType&) = delete;
  RecordType& operator=(const RecordType&) = delete;

  // The record type's name ("ANALYSIS").
  const std::wstring& Name() const { return name_; }
  // Registry id of the type itself.
  RegID ID() const { return id_; }
  const RecordOps& Ops() const { return ops_; }
  // The members in declaration order.
  const std::vector<std::unique_ptr<Member>>& Members() const { return members_; }
  // The member with C++ name `name`, or nullptr.
  const Member* FindMember(std::wstring_view name) const;
  // The persisted layout: the record's element with its member elements.
  const TagNode& Layout() const { return layout_; }
  TagNode& MutableLayout() { return layout_; }
  // A default-constructed record: the defaults of members without a declared default.
  const void* Prototype() const { return prototype_; }
  // Problems found while declaring (bad traits, duplicate names or tags).
  const std::vector<gtl::status>& DeclarationErrors() const { return errors_; }

  // Declaration phase (used by Schema<T>): adds a member and checks it.
  Member& AddMember(std::unique_ptr<Member> m);
  // Builds the layout and the default values; called once by Schema::Done.
  void Finish(RegID id);

 private:
  std::wstring name_;
  RecordOps ops_;
  RegID id_ = 0;
  std::vector<std::unique_ptr<Member>> members_;
  TagNode layout_;
  void* prototype_ = nullptr;
  std::vector<gtl::status> errors_;
};

// An owned record of a type known at run time (a fresh load target, a clone).
class OCObject {
 public:
  OCObject() = default;
  explicit OCObject(const RecordType& type) : type_(&type), p_(type.Ops().create()) {}
  ~OCObject() { reset(); }
  OCObject(OCObject&& o) noexcept : type_(o.type_), p_(o.p_) { o.p_ = nullptr; }
  OCObject& operator=(OCObject&& o) noexcept;
  OCObject(const OCObject&) = delete;
  OCObject& operator=(const OCObject&) = delete;

  void* get() const { return p_; }
  const RecordType* type() const { return type_; }
  void reset();

 private:
  const RecordType* type_ = nullptr;
  void* p_ = nullptr;
};

// The data store handle: a live root object and its record type.
struct IODS {
  const RecordType* type = nullptr;
  void* root = nullptr;
  bool IsValid() const { return type && root; }
};

}  // namespace oc
