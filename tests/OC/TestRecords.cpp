#include "tests/OC/TestRecords.h"

#include "OC/Registry.h"
#include "OC/Schema.h"
#include "OC/xml/XML.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<octest::Kind>() {
  static const MetaEnumCommon t(L"Kind", {{0, L"Sand"},
                                          {1, L"Clay"},
                                          {2, L"Rock"},
                                          {2, L"Stone", MetaEnumCommon::Alias}});
  return t;
}

namespace oc {
using namespace octest;

template <>
const RecordType& TypeOf<Point>() {
  static const RecordType& t =
      Schema<Point>(L"Point").Add(&Point::fX_, L"fX_", L"X").Add(&Point::fY_, L"fY_", L"Y").Done();
  return t;
}

template <>
const RecordType& TypeOf<Line>() {
  static const RecordType& t = Schema<Line>(L"Line")
                                   .Add(&Line::point1_, L"point1_", L"PointID1")
                                   .Add(&Line::point2_, L"point2_", L"PointID2")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<Layer>() {
  static const RecordType& t =
      Schema<Layer>(L"Layer")
          .Add(&Layer::name_, L"name_", L"Name")
          .Add(&Layer::eKind_, L"eKind_", L"Kind")
          .Add(&Layer::fWeight_, L"fWeight_", L"UnitWeight",
               meta::MetaDataTraits{}.Bounds(0, 100).Units(L"kN/m³").Default(L"18"))
          .Add(&Layer::nCount_, L"nCount_", L"Count")
          .Add(&Layer::gidMaterial_, L"gidMaterial_", L"MaterialID")
          .Add(&Layer::nBig_, L"nBig_", L"Big")
          .Add(&Layer::bActive_, L"bActive_", L"Active")
          .Add(&Layer::origin_, L"origin_", L"Origin")
          .Add(&Layer::points_, L"points_", L"Points[Point]")
          .Add(&Layer::times_, L"times_", L"ElapsedTimes[Time]")
          .Add(&Layer::GetDepth, &Layer::SetDepth, L"fDepth_", L"Depth")
          .Done();
  return t;
}

template <>
const RecordType& TypeOf<Item>() {
  static const RecordType& t =
      Schema<Item>(L"Item")
          .Add(&Item::label_, L"label_", L"Label", meta::MetaDataTraits{}.Flag(meta::MetaDataTraits::ReadOnly))
          .Add(&Item::fValue_, L"fValue_", L"Value", meta::MetaDataTraits{}.Flag(meta::MetaDataTraits::NonFinite))
          .Done();
  return t;
}

template <>
const RecordType& TypeOf<Geometry>() {
  static const RecordType& t = Schema<Geometry>(L"Geometry")
                                   .Add(&Geometry::lines_, L"lines_", L"Lines[Lines]")
                                   .Add(&Geometry::points_, L"points_", L"Points[Point]")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<Doc>() {
  static const RecordType& t =
      Schema<Doc>(L"Doc")
          .Add(&Doc::fTolerance_, L"fTolerance_", L"Tolerance")
          .Add(&Doc::title_, L"title_", L"Title")
          .Add(&Doc::eDefaultKind_, L"eDefaultKind_", L"DefaultKind")
          .Add(&Doc::layers_, L"layers", L"Layers[Layer]")
          .Add(&Doc::items_, L"items", L"Items[Item]")
          .Add(&Doc::geometry_, L"geometry", L"GeometryItems")
          .Add(&Doc::kfns_, L"HKFns", L"Functions.Material.Hydraulic.KFns[KFn]")
          .Add(&Doc::boundFns_, L"HydBFns", L"Functions.Boundary.Hydraulic.BoundFns[BoundFn]")
          .Add(&Doc::notes_, L"notes", L"Notes[Note]")
          .Done();
  return t;
}
}  // namespace oc

namespace octest {

void RegisterTestTypes() {
  static const bool done = [] {
    auto& reg = oc::OCRegistry::Instance();
    reg.RegisterOC(oc::TypeOf<Doc>(), meta::MetaPersistTraits::TagFromTagName(L"TestDoc"), {}, L"7.1");
    static const oc::OCAliasRegistrator a1(oc::TypeOf<Doc>(), {L"test::doc::Layers", L"layers"});
    static const oc::OCAliasRegistrator a2(oc::TypeOf<Doc>(), {L"test::Function::HydKFns", L"HKFns"});
    oc::xml::RegisterPersistanceOrdering(L"GeometryItems.Points", L"GeometryItems.Lines");
    return reg.InitializationComplete().succeeded();
  }();
  (void)done;
}

Doc SampleDoc() {
  Doc d;
  d.fTolerance_ = 1e-4;
  d.title_ = L"Dam <section> & \"toe\" — Ω";
  d.eDefaultKind_ = Kind::Rock;
  for (int i = 1; i <= 5; ++i) {
    Layer l;
    l.name_ = L"Layer " + std::to_wstring(i);
    l.eKind_ = static_cast<Kind>(i % 3);
    l.fWeight_ = 17.5 + i / 3.0;
    l.nCount_ = i;
    l.gidMaterial_ = static_cast<v7::GID>(i * 7);
    l.nBig_ = std::int64_t{1} << (40 + i);
    l.bActive_ = i % 2 == 0;
    l.origin_ = {i * 0.1, -i * 0.2};
    for (int k = 0; k < i; ++k) l.points_.push_back({k * 1.5, k * -0.25});
    l.times_ = {0.0, 0.5 * i, 86400.0};
    l.SetDepth(i * 2.5);
    d.layers_.Add(l);
  }
  d.layers_.Delete({2, 4});
  for (int i = 1; i <= 4; ++i) d.items_.Add(Item{0, L"item" + std::to_wstring(i), i * 1.25});
  d.items_.Delete({1, 3});
  d.geometry_.points_ = {{0, 0}, {10, 0}, {10, 5}};
  d.geometry_.lines_ = {{1, 2}, {2, 3}};
  d.kfns_ = {{1, 2}, {3, 4}};
  d.boundFns_ = {{-1, 0}};
  d.notes_ = {L"first", L"  padded  ", L" ", L"line\r\nbreak"};
  return d;
}

}  // namespace octest
