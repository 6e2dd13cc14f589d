#pragma once
// Record types declared to the framework for its tests: nested records,
// arrays of records and values, identified tables (one with a stored ID),
// an enumeration, an accessor pair, dotted tags and an ordering.
#include <cstdint>
#include <string>
#include <vector>

#include "OC/RecordType.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/core/QVContainerTable.h"

namespace octest {

enum class Kind : std::int32_t { Sand = 0, Clay = 1, Rock = 2, None = qvi::kNone };

struct Point {
  double fX_ = 0.0;
  double fY_ = 0.0;
  friend bool operator==(const Point&, const Point&) = default;
};

// A record with every value type and a member behind accessors.
struct Layer {
  std::wstring name_;
  Kind eKind_ = Kind::Sand;
  double fWeight_ = 18.0;  // bounds 0..100
  std::int32_t nCount_ = qvi::kNone;
  std::uint32_t gidMaterial_ = 0;
  std::int64_t nBig_ = 0;
  bool bActive_ = true;
  Point origin_;
  std::vector<Point> points_;
  std::vector<double> times_;
  double GetDepth() const { return fDepth_; }
  void SetDepth(double d) { fDepth_ = d; }
  bool bDeleted_ = false;  // tombstone, not persisted
  friend bool operator==(const Layer&, const Layer&) = default;

 private:
  double fDepth_ = qvi::kNoValue;
};
inline bool IsMissing(const Layer& l) { return l.bDeleted_; }
inline void SetMissing(Layer& l) {
  l = Layer{};
  l.bDeleted_ = true;
}

// A record whose ID is stored in its first field.
struct Item {
  v7::GID id_ = 0;
  std::wstring label_;
  double fValue_ = qvi::kNoValue;
  friend bool operator==(const Item&, const Item&) = default;
};

struct Line {
  v7::GID point1_ = 0;
  v7::GID point2_ = 0;
  friend bool operator==(const Line&, const Line&) = default;
};

// Lines are declared before points; the ordering puts points first.
struct Geometry {
  std::vector<Line> lines_;
  std::vector<Point> points_;
  friend bool operator==(const Geometry&, const Geometry&) = default;
};

// A stand-alone container base, so that the real table template is used
// without the document library.
struct TestContainerBase {
  virtual ~TestContainerBase() = default;
  virtual void FullCompact(std::vector<v7::GID>& r) { r.clear(); }
  virtual void Clear() = 0;
  virtual void OnGetUsageOf(v7::GID, v7::UsageList&) {}
  v7::GID ID() const { return 0; }
  bool IsRegistered() const { return false; }
};
inline void NotifyAdd(const TestContainerBase&, const std::vector<v7::GID>&) {}
inline void NotifyDelete(const TestContainerBase&, const std::vector<v7::GID>&) {}
inline void NotifyIDUpdate(const TestContainerBase&, const std::vector<v7::GID>&) {}

using LayerTable = v7::QVContainerTable<Layer, v7::QVContainerNoStoredIDPolicy<Layer>,
                                        v7::QVContainerOpPolicy<Layer>,
                                        v7::QVContainerVectorStoragePolicy<Layer>, TestContainerBase>;
using ItemTable =
    v7::QVContainerTable<Item, v7::QVContainerStoredIDPolicy<Item, &Item::id_>,
                         v7::QVContainerOpPolicy<Item>, v7::QVContainerVectorStoragePolicy<Item>,
                         TestContainerBase>;

struct Doc {
  double fTolerance_ = 0.005;
  std::wstring title_;
  Kind eDefaultKind_ = Kind::Clay;
  LayerTable layers_;
  ItemTable items_;
  Geometry geometry_;
  std::vector<Point> kfns_;
  std::vector<Point> boundFns_;
  std::vector<std::wstring> notes_;
  friend bool operator==(const Doc&, const Doc&) = default;
};

// Declares the test types, the root, its aliases and the ordering, once,
// and closes registration.
void RegisterTestTypes();

// A document with something in every member, deleted rows included.
Doc SampleDoc();

}  // namespace octest

template <>
const meta::MetaEnumCommon& meta::EnumTable<octest::Kind>();
