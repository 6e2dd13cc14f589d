#pragma once
// A node of a live object tree: a record, a wrapper element of a record's
// layout, one member of a record, or one value of an array. Nodes are small
// values; they stay valid while the objects they point into are not resized
// or destroyed. Every node answers the same value protocol.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "OC/RecordType.h"

namespace oc {

class IOC {
 public:
  enum class Kind : std::uint8_t { Invalid, Record, Group, Member, Element };

  IOC() = default;
  // The whole object of a data store.
  explicit IOC(const IODS& ds) : kind_(Kind::Record), type_(ds.type), obj_(ds.root) {}
  static IOC Record(const RecordType& type, void* rec);

  Kind kind() const { return kind_; }
  bool IsValid() const { return kind_ != Kind::Invalid; }
  // The value type: Struct for records and wrapper elements.
  ValueType Type() const;
  // The declared member (Member and Element nodes), else nullptr.
  const oc::Member* Template() const { return member_; }
  // The record type of a Record node, or of the record holding a member.
  const RecordType* OwnerType() const { return type_; }
  // The record a Record node stands for.
  void* Object() const { return kind_ == Kind::Record ? obj_ : nullptr; }
  // A short name: the member's C++ name, the wrapper's tag, the type's name.
  std::wstring Name() const;

  // The value as text (the persisted form), bool, integer or double.
  gtl::status Get(std::wstring& out) const;
  gtl::status Get(bool& out) const;
  gtl::status Get(std::int64_t& out) const;
  gtl::status Get(double& out) const;
  // Stores a value, converting and checking the bounds; read-only members,
  // records and collections refuse.
  gtl::status Set(std::wstring_view text);
  gtl::status Set(bool v);
  gtl::status Set(std::int64_t v);
  gtl::status Set(double v);

  // True when the value equals the member's default (records: every member).
  bool IsDefault() const;
  // True for the "no value" markers: qvi::kNoValue, qvi::kNone, GID 0.
  bool IsUndefined() const;
  // Checks the value against its data traits: a number within its bounds
  // (the no-value markers pass), an enumeration one of its table's values.
  // A record, wrapper or collection checks every value below it. Returns the
  // first problem, naming where it is below this node.
  gtl::status Verify() const;
  // Resets to the default (collections become empty).
  gtl::status Clear();
  // Elements of a collection (tables: live records), characters of a text,
  // members of a record; 1 for another value.
  std::size_t Length() const;

  // The first child (members in layout order, elements of a collection), or
  // an invalid node.
  IOC begin() const;
  // The child after `child`, or an invalid node.
  IOC GetNextSubOC(const IOC& child) const;
  // The child named `name`: a member by C++ name or by persisted tag, or a
  // wrapper element by tag. Invalid when there is none.
  IOC GetSubOC(std::wstring_view name) const;
  // The child persisted under tag `tag` only.
  IOC GetSubOCByTag(std::wstring_view tag) const;
  // Element `index` of a collection: zero-based in an array, the record's
  // GID in a table. Invalid when there is none (or it is deleted).
  IOC At(std::uint64_t index) const;
  // Copies the value of `other`, a node of the same declaration.
  gtl::status Assign(const IOC& other);
  // A copy of the record a Record node stands for.
  OCObject Clone() const;
  // A default record of the type of a Record node.
  OCObject EmptyClone() const;

  // Where this node is, for messages ("Points[2].X").
  std::wstring Where() const { return where_; }
  void SetWhere(std::wstring w) { where_ = std::move(w); }

  friend bool operator==(const IOC& a, const IOC& b) {
    return a.kind_ == b.kind_ && a.type_ == b.type_ && a.obj_ == b.obj_ && a.member_ == b.member_ &&
           a.group_ == b.group_ && a.index_ == b.index_;
  }

 private:
  void* Storage() const;  // scalar storage, or nullptr for accessor members
  gtl::status LoadScalar(ScalarBox& box) const;
  gtl::status StoreScalar(const ScalarBox& box, ValueType type);
  // Success, or the out-of-bounds error of the value of `type` at `storage`.
  gtl::status CheckBounds(ValueType type, const void* storage) const;
  IOC ChildOf(const TagNode& node) const;
  IOC Child(std::size_t pos) const;

  Kind kind_ = Kind::Invalid;
  const RecordType* type_ = nullptr;  // Record, Group, Member: the record's type
  void* obj_ = nullptr;               // Record/Group/Member: the record; Element: the vector
  const oc::Member* member_ = nullptr;
  const TagNode* group_ = nullptr;    // Group: the wrapper element
  std::uint64_t index_ = 0;           // Element: the index; Group/Member: child position
  std::wstring where_;
};

// The display text of a node's value: enumerations by name, "(none)" for
// the no-value markers, the member's units appended.
std::wstring PrettyPrintValue(const IOC& node);

}  // namespace oc
