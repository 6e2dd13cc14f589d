// Persisted names of a three-dimensional function. The user's bounds are
// written under crossed names: documents of the previous generation kept them
// as "UserMin" and "UserMax", and the migration of those documents renames
// "UserMin" to "SpecifiedMax" and "UserMax" to "SpecifiedMin". Reading the
// crossed names back into the same members keeps every migrated bound where
// the user set it.
#include "OC/Schema.h"
#include "V7Doc/functions/Func3D.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::Func3DModel::Func3DModel>() {
  static const MetaEnumCommon t(L"Func3DModel", {{0, L"None"}, {1, L"Kriging"}, {2, L"Linear"}});
  return t;
}

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ERangeConstraint>() {
  static const MetaEnumCommon t(L"ERangeConstraint",
                                {{0, L"Unbounded"}, {1, L"DataRange"}, {2, L"UserRange"}});
  return t;
}

namespace oc {
using namespace v7;

template <>
const RecordType& TypeOf<Func3D>() {
  static const RecordType& t = Schema<Func3D>(L"Func3D")
      .Add<std::wstring>(&Func3D::strDescription_, L"strDescription_", L"Description")
      .Add<DataParamType>(&Func3D::eInputXParam_, L"eInputXParam_", L"InputXParam")
      .Add<DataParamType>(&Func3D::eInputYParam_, L"eInputYParam_", L"InputYParam")
      .Add<DataParamType>(&Func3D::eOutputParam_, L"eOutputParam_", L"OutputParam")
      .Add<double>(&Func3D::fUserMin_, L"fUserMin_", L"SpecifiedMax")
      .Add<double>(&Func3D::fUserMax_, L"fUserMax_", L"SpecifiedMin")
      .AddReach(+[](Func3D& f) -> auto& { return f.points_; }, L"points_", L"Points[Point]")
      .Add<Func3DModel::Func3DModel>(&Func3D::eModel_, L"eModel_", L"Model")
      .Add<ERangeConstraint>(&Func3D::eRangeConstraint_, L"eRangeConstraint_", L"RangeConstraint")
      .Done();
  return t;
}

}  // namespace oc
