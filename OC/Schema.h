#pragma once
// Declaring a record type: one line per persistent member.
//
//   template <> const oc::RecordType& oc::TypeOf<Point>() {
//     static const oc::RecordType& t = oc::Schema<Point>(L"Point")
//         .Add(&Point::fX_, L"fX_", L"X")
//         .Add(&Point::eKind_, L"eKind_", L"Kind")
//         .Add(&Point::GetZ, &Point::SetZ, L"z_", L"Z", meta::MetaDataTraits{}.Bounds(0, 1))
//         .Done();
//     return t;
//   }
//
// The member's C++ type fixes its value type: bool, std::int32_t,
// std::uint32_t (GID), std::int64_t, double, std::wstring, an enumeration
// with a meta::EnumTable, a nested record (declared with its own TypeOf), a
// std::vector of records or values, or an identified record table
// (QVContainerTable), a fixed-length std::array of records or values, or a
// key map (QVContainerAssoc). Collections take a collection name,
// "Points[Point]".
// A table persists each record's ID itself: do not declare a stored ID
// member of the record.
//
// Only the thin typed adapters live here; the work is done by compiled code.
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "OC/RecordType.h"
#include "QVI/meta/MetaEnumCommon.h"

namespace oc {

// The declaration of record type T; specialised once per record type, next
// to it, and built on first use.
template <class T>
const RecordType& TypeOf();

// Registers a finished record type with the registry and returns it (the
// registry owns it). Used by Schema::Done.
const RecordType& AdoptRecordType(std::unique_ptr<RecordType> type);

// Adds every member of `part` to `into` as its own, at the same tags,
// reached through `reach` (the part inside a record of `into`). Used by
// Schema::Include: the part's declarations serve both types.
void IncludeMembers(RecordType& into, const RecordType& part, std::shared_ptr<const Accessor> reach);

namespace detail {

template <class M>
constexpr bool kIsScalar = std::is_same_v<M, bool> || std::is_same_v<M, std::int32_t> ||
                           std::is_same_v<M, std::uint32_t> || std::is_same_v<M, std::int64_t> ||
                           std::is_same_v<M, double> || std::is_same_v<M, std::wstring> ||
                           std::is_enum_v<M>;

template <class M>
constexpr ValueType ScalarTypeOf() {
  if constexpr (std::is_same_v<M, bool>) return ValueType::Bool;
  else if constexpr (std::is_same_v<M, std::int32_t>) return ValueType::Int32;
  else if constexpr (std::is_same_v<M, std::uint32_t>) return ValueType::UInt32;
  else if constexpr (std::is_same_v<M, std::int64_t>) return ValueType::Int64;
  else if constexpr (std::is_same_v<M, double>) return ValueType::Double;
  else if constexpr (std::is_same_v<M, std::wstring>) return ValueType::WString;
  else {
    static_assert(std::is_enum_v<M> && sizeof(M) == sizeof(std::int32_t),
                  "persisted enumerations are 32-bit");
    return ValueType::Enum;
  }
}

template <class M>
concept IdentifiedTable = requires(M t, const M ct, std::uint32_t id) {
  typename M::id_policy;
  typename M::value_type;
  t.Reserve(std::size_t{});
  t.At(id);
  ct.IsMissingSlot(id);
  ct.Size();
};

template <class M>
struct IsVector : std::false_type {};
template <class X, class A>
struct IsVector<std::vector<X, A>> : std::true_type {};

template <class M>
struct IsStdArray : std::false_type {};
template <class X, std::size_t N>
struct IsStdArray<std::array<X, N>> : std::true_type {};

// A map kept as a vector of (key, value) pairs sorted by unique key, which
// hands its vector out for a read and sorts it again afterwards.
template <class M>
concept KeyValueMap = requires(M t, const M ct) {
  typename M::value_type::first_type;
  typename M::value_type::second_type;
  t.MutableEntries();
  { t.Normalize() } -> std::same_as<std::size_t>;
  ct.Size();
};

// The warning a key map gives when a read brought keys twice (or key 0).
gtl::status DroppedKeysWarning(std::size_t dropped);

template <class T>
RecordOps OpsOf() {
  RecordOps ops;
  ops.create = [] { return static_cast<void*>(new T()); };
  ops.destroy = [](void* p) { delete static_cast<T*>(p); };
  ops.copy = [](void* d, const void* s) { *static_cast<T*>(d) = *static_cast<const T*>(s); };
  ops.move = [](void* d, void* s) { *static_cast<T*>(d) = std::move(*static_cast<T*>(s)); };
  ops.equal = [](const void* a, const void* b) {
    return *static_cast<const T*>(a) == *static_cast<const T*>(b);
  };
  return ops;
}

template <class T, class M>
class FieldAccess final : public Accessor {
 public:
  explicit FieldAccess(M T::*field) : field_(field) {}
  void* Field(void* rec) const override { return &(static_cast<T*>(rec)->*field_); }
  bool IsFixedOffset() const override { return true; }

 private:
  M T::*field_;
};

// A member of an object the record owns, reached through a function
// ("the points of the document's geometry").
template <class T, class M>
class ReachAccess final : public Accessor {
 public:
  explicit ReachAccess(M& (*reach)(T&)) : reach_(reach) {}
  void* Field(void* rec) const override { return &reach_(*static_cast<T*>(rec)); }

 private:
  M& (*reach_)(T&);
};

// Getter/setter members; enumerations go through their 32-bit value.
template <class T, class V, class Getter, class Setter>
class PropertyAccess final : public Accessor {
 public:
  PropertyAccess(Getter g, Setter s) : get_(g), set_(s) {}
  void* Field(void*) const override { return nullptr; }
  void Load(const void* rec, void* value) const override {
    const V v = (static_cast<const T*>(rec)->*get_)();
    if constexpr (std::is_enum_v<V>) *static_cast<std::int32_t*>(value) = static_cast<std::int32_t>(v);
    else *static_cast<V*>(value) = v;
  }
  gtl::status Store(void* rec, const void* value) const override {
    T& r = *static_cast<T*>(rec);
    auto call = [&](auto&& v) {
      if constexpr (std::is_void_v<decltype((r.*set_)(v))>) {
        (r.*set_)(v);
        return gtl::status{};
      } else {
        return gtl::status((r.*set_)(v));
      }
    };
    if constexpr (std::is_enum_v<V>)
      return call(static_cast<V>(*static_cast<const std::int32_t*>(value)));
    else return call(*static_cast<const V*>(value));
  }

 private:
  Getter get_;
  Setter set_;
};

template <class Vec>
class VectorOps final : public SequenceOps {
 public:
  std::size_t Size(const void* s) const override { return static_cast<const Vec*>(s)->size(); }
  void Resize(void* s, std::size_t n) const override { static_cast<Vec*>(s)->resize(n); }
  void* At(void* s, std::size_t i) const override { return &(*static_cast<Vec*>(s))[i]; }
  bool Equal(const void* a, const void* b) const override {
    return *static_cast<const Vec*>(a) == *static_cast<const Vec*>(b);
  }
  void Copy(void* d, const void* s) const override {
    *static_cast<Vec*>(d) = *static_cast<const Vec*>(s);
  }
  void Move(void* d, void* s) const override {
    *static_cast<Vec*>(d) = std::move(*static_cast<Vec*>(s));
  }
  void MoveElement(void* s, std::size_t d, std::size_t from) const override {
    auto& v = *static_cast<Vec*>(s);
    v[d] = std::move(v[from]);
  }
};

// A fixed-length array is written like a vector of its N elements. Its
// length cannot change: resizing to 0 (the start of a read) puts every
// element back to its default, so that a file listing fewer elements leaves
// the rest at their default; any other size leaves the elements as they
// are. Reading more than N elements is refused by the reader (MaxSize).
template <class Arr>
class FixedArrayOps final : public SequenceOps {
 public:
  std::size_t Size(const void*) const override { return std::tuple_size_v<Arr>; }
  void Resize(void* s, std::size_t n) const override {
    if (n == 0) static_cast<Arr*>(s)->fill(typename Arr::value_type{});
  }
  void* At(void* s, std::size_t i) const override { return &(*static_cast<Arr*>(s))[i]; }
  bool Equal(const void* a, const void* b) const override {
    return *static_cast<const Arr*>(a) == *static_cast<const Arr*>(b);
  }
  void Copy(void* d, const void* s) const override {
    *static_cast<Arr*>(d) = *static_cast<const Arr*>(s);
  }
  void Move(void* d, void* s) const override {
    *static_cast<Arr*>(d) = std::move(*static_cast<Arr*>(s));
  }
  void MoveElement(void* s, std::size_t d, std::size_t from) const override {
    auto& a = *static_cast<Arr*>(s);
    a[d] = std::move(a[from]);
  }
  std::size_t MaxSize() const override { return std::tuple_size_v<Arr>; }
};

// A key map is a collection of its (key, value) entries in key order; a
// read fills the entries as listed and then sorts them, the last of a
// repeated key winning, as Insert would have done.
template <class Map>
class KeyValueOps final : public SequenceOps {
  static auto& Entries(void* s) { return static_cast<Map*>(s)->MutableEntries(); }
  static const auto& Entries(const void* s) {
    return const_cast<Map*>(static_cast<const Map*>(s))->MutableEntries();
  }

 public:
  std::size_t Size(const void* s) const override { return Entries(s).size(); }
  void Resize(void* s, std::size_t n) const override { Entries(s).resize(n); }
  void* At(void* s, std::size_t i) const override { return &Entries(s)[i]; }
  bool Equal(const void* a, const void* b) const override { return Entries(a) == Entries(b); }
  // Entries only: the key container a map is registered with stays its own.
  void Copy(void* d, const void* s) const override { Entries(d) = Entries(s); }
  void Move(void* d, void* s) const override { Entries(d) = std::move(Entries(s)); }
  void MoveElement(void* s, std::size_t d, std::size_t from) const override {
    Entries(s)[d] = std::move(Entries(s)[from]);
  }
  std::uint32_t* EntryKey(void* elem) const override {
    if constexpr (std::is_same_v<typename Map::value_type::first_type, std::uint32_t>)
      return &static_cast<typename Map::value_type*>(elem)->first;
    else return nullptr;
  }
  std::uint32_t* EntryValue(void* elem) const override {
    if constexpr (std::is_same_v<typename Map::value_type::second_type, std::uint32_t>)
      return &static_cast<typename Map::value_type*>(elem)->second;
    else return nullptr;
  }
  gtl::status Finish(void* s, std::size_t) const override {
    return DroppedKeysWarning(static_cast<Map*>(s)->Normalize());
  }
};

template <class Table>
class TableAdapter final : public TableOps {
  using T = typename Table::value_type;

 public:
  std::size_t Size(const void* t) const override { return static_cast<const Table*>(t)->Size(); }
  bool IsLive(const void* t, std::uint32_t id) const override {
    return id >= 1 && id <= Size(t) && !static_cast<const Table*>(t)->IsMissingSlot(id);
  }
  void* At(void* t, std::uint32_t id) const override { return &static_cast<Table*>(t)->At(id); }
  void Clear(void* t) const override { static_cast<Table*>(t)->Clear(); }
  void Place(void* t, std::uint32_t id, void* rec) const override {
    *static_cast<T*>(OpenSlot(t, id)) = std::move(*static_cast<T*>(rec));
    SealSlot(t, id);
  }
  void* OpenSlot(void* t, std::uint32_t id) const override {
    Table& table = *static_cast<Table*>(t);
    if (id > table.Size()) table.Reserve(id);
    return &table.At(id);
  }
  void SealSlot(void* t, std::uint32_t id) const override {
    if constexpr (Table::id_policy::kStoresID) Table::id_policy::SetID(static_cast<Table*>(t)->At(id), id);
  }
  std::size_t SlotBytes() const override { return sizeof(T); }
  void ReserveCapacity(void* t, std::size_t n) const override {
    if constexpr (requires(Table& table, std::size_t k) { table.ReserveCapacity(k); })
      static_cast<Table*>(t)->ReserveCapacity(n);
  }
  void Copy(void* d, const void* s) const override {
    *static_cast<Table*>(d) = *static_cast<const Table*>(s);
  }
  void Move(void* d, void* s) const override {
    *static_cast<Table*>(d) = std::move(*static_cast<Table*>(s));
  }
  bool Equal(const void* a, const void* b) const override {
    return *static_cast<const Table*>(a) == *static_cast<const Table*>(b);
  }
};

template <class E>
const meta::MetaEnumCommon* EnumTableOf() {
  if constexpr (std::is_enum_v<E>) return &meta::EnumTable<E>();
  else return nullptr;
}

}  // namespace detail

template <class T>
class Schema {
 public:
  // Starts the declaration of record type T under `name`.
  explicit Schema(std::wstring name)
      : type_(std::make_unique<RecordType>(std::move(name), detail::OpsOf<T>())) {}
  // The same for a type that is not a plain value (it owns registrations, a
  // manager): copy, move and comparison go member by member through the
  // declarations (MemberwiseOps).
  Schema(std::wstring name, RecordOps ops)
      : type_(std::make_unique<RecordType>(std::move(name), ops)) {}

  // Declares field `field` with C++ name `name`, persisted as `tag_name`
  // ("X", "Group.X", or a collection "Points[Point]").
  template <class M>
  Schema& Add(M T::*field, std::wstring name, std::wstring_view tag_name,
              meta::MetaDataTraits traits = {}) {
    return AddWith<M>(std::make_unique<detail::FieldAccess<T, M>>(field), std::move(name),
                      tag_name, std::move(traits));
  }

  // Declares a member that lives in an object the record owns, reached by
  // `reach` (a captureless lambda with a unary +: `+[](Doc& d) -> auto& {
  // return d.geometry_.points_; }`). The member is the record's own for
  // persistence and paths.
  template <class M>
  Schema& AddReach(M& (*reach)(T&), std::wstring name, std::wstring_view tag_name,
                   meta::MetaDataTraits traits = {}) {
    return AddWith<M>(std::make_unique<detail::ReachAccess<T, M>>(reach), std::move(name),
                      tag_name, std::move(traits));
  }

 private:
  template <class M>
  Schema& AddWith(std::unique_ptr<Accessor> access, std::wstring name, std::wstring_view tag_name,
                  meta::MetaDataTraits traits) {
    auto m = Start(std::move(name), tag_name, std::move(traits));
    m->access = std::move(access);
    if constexpr (detail::kIsScalar<M>) {
      m->type = detail::ScalarTypeOf<M>();
      m->traits.enum_table = detail::EnumTableOf<M>();
    } else if constexpr (detail::IdentifiedTable<M>) {
      m->type = ValueType::Table;
      m->record = &TypeOf<typename M::value_type>;
      m->table = std::make_unique<detail::TableAdapter<M>>();
    } else if constexpr (detail::IsVector<M>::value || detail::IsStdArray<M>::value ||
                         detail::KeyValueMap<M>) {
      using X = typename M::value_type;
      static_assert(!std::is_same_v<X, bool>, "std::vector<bool> has no addressable elements");
      m->type = ValueType::Array;
      if constexpr (detail::IsVector<M>::value) m->seq = std::make_unique<detail::VectorOps<M>>();
      else if constexpr (detail::IsStdArray<M>::value)
        m->seq = std::make_unique<detail::FixedArrayOps<M>>();
      else m->seq = std::make_unique<detail::KeyValueOps<M>>();
      if constexpr (detail::kIsScalar<X>) {
        m->element_type = detail::ScalarTypeOf<X>();
        m->traits.enum_table = detail::EnumTableOf<X>();
      } else {
        m->record = &TypeOf<X>;
      }
    } else {
      m->type = ValueType::Struct;
      m->record = &TypeOf<M>;
    }
    type_->AddMember(std::move(m));
    return *this;
  }


 public:
  // Declares a scalar member reached through its accessor pair. The setter
  // returns nothing, or a gtl::status when it may refuse a value.
  template <class G, class S, class R>
  Schema& Add(G (T::*getter)() const, R (T::*setter)(S), std::wstring name,
              std::wstring_view tag_name, meta::MetaDataTraits traits = {}) {
    static_assert(std::is_void_v<R> || std::is_same_v<R, gtl::status>,
                  "a setter returns nothing or a status");
    using V = std::remove_cvref_t<G>;
    static_assert(std::is_same_v<V, std::remove_cvref_t<S>>, "getter and setter disagree");
    static_assert(detail::kIsScalar<V>, "accessor members hold one value");
    auto m = Start(std::move(name), tag_name, std::move(traits));
    m->type = detail::ScalarTypeOf<V>();
    m->traits.enum_table = detail::EnumTableOf<V>();
    m->access = std::make_unique<
        detail::PropertyAccess<T, V, G (T::*)() const, R (T::*)(S)>>(getter, setter);
    type_->AddMember(std::move(m));
    return *this;
  }

  // Declares the members of record `part` (declared with its own TypeOf)
  // as members of T at their own tags: a record that holds a whole other
  // record at its own level ("Objects.DataPoints" of an old document's
  // analysis is the DataPoints of a stability record).
  template <class P>
  Schema& Include(P T::*part) {
    IncludeMembers(*type_, TypeOf<P>(), std::make_shared<detail::FieldAccess<T, P>>(part));
    return *this;
  }

  // Closes the declaration and hands the type to the registry.
  const RecordType& Done() { return AdoptRecordType(std::move(type_)); }

 private:
  std::unique_ptr<Member> Start(std::wstring name, std::wstring_view tag_name,
                                meta::MetaDataTraits traits) {
    auto m = std::make_unique<Member>();
    m->name = std::move(name);
    m->persist = meta::MetaPersistTraits::TagFromTagName(tag_name);
    m->traits = std::move(traits);
    return m;
  }

  std::unique_ptr<RecordType> type_;
};

namespace detail {
void MemberwiseCopy(const RecordType& type, void* dst, const void* src);
void MemberwiseMove(const RecordType& type, void* dst, void* src);
bool MemberwiseEqual(const RecordType& type, const void* a, const void* b);
}  // namespace detail

// Record operations of T through its declared members: T needs only a
// default constructor. Members not declared are neither copied nor compared.
template <class T>
RecordOps MemberwiseOps() {
  RecordOps ops;
  ops.create = [] { return static_cast<void*>(new T()); };
  ops.destroy = [](void* p) { delete static_cast<T*>(p); };
  ops.copy = [](void* d, const void* s) { detail::MemberwiseCopy(TypeOf<T>(), d, s); };
  ops.move = [](void* d, void* s) { detail::MemberwiseMove(TypeOf<T>(), d, s); };
  ops.equal = [](const void* a, const void* b) { return detail::MemberwiseEqual(TypeOf<T>(), a, b); };
  return ops;
}

// A data store handle on a live record of a declared type.
template <class T>
IODS Store(T& obj) {
  return IODS{&TypeOf<T>(), &obj};
}

}  // namespace oc
