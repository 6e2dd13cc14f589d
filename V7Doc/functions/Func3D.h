#pragma once
// A function of two inputs given as scattered points (x, y, value), evaluated
// through a surface fitted to them, and the document's table of such
// functions (collection "3DFns", container 68).
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "QVI/gtl/range.h"
#include "QVI/gtl/status.h"
#include "QVI/math/fn/Func3DImpl.h"
#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/functions/FnDataPoints.h"
#include "V7Doc/functions/Func2D.h"
#include "V7Doc/results/DataParamType.h"

namespace v7 {

namespace Func3DModel {
// Which surface a function fits to its points.
enum Func3DModel : std::int32_t {
  None = 0,     // "None": no surface; no value anywhere
  Kriging = 1,  // "Kriging": ordinary kriging with a fitted variogram
  Linear = 2,   // "Linear": linear over a Delaunay triangulation
  Undefined = qvi::kNone,
};
}  // namespace Func3DModel

// How a function's output is bounded.
enum class ERangeConstraint : std::int32_t {
  // "Unbounded": the surface's values as they come.
  Unbounded = 0,
  // "DataRange": within the lowest and highest value of the defined points,
  // so a kriging surface never overshoots what was measured.
  DataRange = 1,
  // "UserRange": within the user's bounds; an unset bound leaves that side
  // open.
  UserRange = 2,
  Undefined = qvi::kNone,
};

// The stored data of one three-dimensional function.
struct Func3DData {
  std::wstring strDescription_;
  DataParamType eInputXParam_ = DataParamType::Undefined;
  DataParamType eInputYParam_ = DataParamType::Undefined;
  DataParamType eOutputParam_ = DataParamType::Undefined;
  double fUserMin_ = qvi::kNoValue;
  double fUserMax_ = qvi::kNoValue;
  // (x, y, value) as (FnPoint::x, FnPoint::y, FnPoint::z); qvi::kNoValue marks
  // a missing coordinate.
  std::vector<FnPoint> points_;
  Func3DModel::Func3DModel eModel_ = Func3DModel::Kriging;
  ERangeConstraint eRangeConstraint_ = ERangeConstraint::DataRange;

  friend bool operator==(const Func3DData&, const Func3DData&) = default;
};

class Func3D : public Func3DData {
 public:
  // A new function: the description of message 20249, kriging, bounded by the
  // data's range.
  Func3D();
  // Copies take the data; the fitted surface is rebuilt on demand.
  Func3D(const Func3D& other) : Func3DData(other) {}
  Func3D(Func3D&& other) noexcept;
  Func3D& operator=(const Func3D& other);
  Func3D& operator=(Func3D&& other) noexcept;
  ~Func3D();
  friend bool operator==(const Func3D& a, const Func3D& b) {
    return static_cast<const Func3DData&>(a) == static_cast<const Func3DData&>(b);
  }

  const std::wstring& Description() const { return strDescription_; }
  void SetDescription(const std::wstring& d) { strDescription_ = d; }
  DataParamType InputXParam() const { return eInputXParam_; }
  void SetInputXParam(DataParamType p) { eInputXParam_ = p; }
  DataParamType InputYParam() const { return eInputYParam_; }
  void SetInputYParam(DataParamType p) { eInputYParam_ = p; }
  DataParamType OutputParam() const { return eOutputParam_; }
  void SetOutputParam(DataParamType p) { eOutputParam_ = p; }
  // The user's bounds of the output; qvi::kNoValue when unset. They apply
  // under ERangeConstraint::UserRange.
  double UserMin() const { return fUserMin_; }
  void SetUserMin(double v);
  double UserMax() const { return fUserMax_; }
  void SetUserMax(double v);
  ERangeConstraint RangeConstraint() const { return eRangeConstraint_; }
  void SetRangeConstraint(ERangeConstraint c);

  // The points; after editing them call UpdatePressureHeadRange.
  std::vector<FnPoint>& Points() { return points_; }
  const std::vector<FnPoint>& Points() const { return points_; }

  Func3DModel::Func3DModel Model() const { return eModel_; }
  // Stores the model and discards the fitted surface; the next update (or
  // evaluation) builds the new one.
  void Model(Func3DModel::Func3DModel m);

  // The points whose three coordinates are all set, in stored order.
  void GetDefinedPts(std::vector<FnPoint>& pts) const;

  // Brings the function up to date: the output range from the constraint,
  // the surface of the model (built when there is none), and the defined
  // points handed to it. Returns the surface's fit status; the model None
  // leaves no surface and succeeds.
  gtl::status UpdatePressureHeadRange();

  // The fitted surface, built on first use; null under the model None.
  // While no surface can be built (too few points, all on one line for the
  // linear model), a Func3DMissing holding the reason.
  const math::fn::I3D* Fn() const;
  // The output range in force (either end qvi::kNoValue in magnitude when
  // open), brought up to date on first use.
  gtl::range<double> RangeOutput() const;

  // The surface value at (x, y) truncated into the output range, or
  // qvi::kNoValue where the surface has none.
  double Calculate(double x, double y) const;
  double operator()(double x, double y) const { return Calculate(x, y); }

  // Removes the points with a missing coordinate, keeping the others' order.
  void ClearMissingPoints();
  // Empties the function: no description, no points, default settings.
  void Clear();

 private:
  void UpdateRange(const std::vector<FnPoint>& defined) const;
  void EnsureUpToDate() const;
  gtl::status Update() const;

  // Caches, rebuilt from the data on demand (the document belongs to one
  // thread).
  mutable std::unique_ptr<math::fn::Func3DImpl> fn_;
  mutable gtl::range<double> range_{-qvi::kNoValue, qvi::kNoValue};
  mutable bool bUpToDate_ = false;
};

// Missing (a deleted slot): no description, no user maximum and no points.
// Points are part of the test so that a function the user filled in but did
// not name is never taken for a deleted slot and dropped on save.
bool IsMissing(const Func3D& f);
// A default record with an empty description.
void SetMissing(Func3D& f);

using Func3DTable = TQVContainerTableNoStoredID<Func3D>;

}  // namespace v7

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
// The persisted members of a three-dimensional function.
template <>
const RecordType& TypeOf<v7::Func3D>();
}  // namespace oc

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::Func3DModel::Func3DModel>();
template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ERangeConstraint>();
