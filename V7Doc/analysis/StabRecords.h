#pragma once
// The records a limit-equilibrium (stability) analysis keeps beside its
// settings, in its per-kind data ("StabItems[StabItem].Entry"): its own
// points, surcharge loads, reinforcement loads, fully specified slip
// surfaces, pressure lines, line loads and the fixed points of the slip
// surfaces.
//
// The identified records (DataPoint, SurchargeLoad, ReinforcementLoad,
// SLIP) store their ID in their first field, written only through their
// ID policy: the stored ID is the slot position + 1 for a live record and 0
// for a deleted one. Surcharges, reinforcements and slip surfaces are
// edited in the drawing and take part in undo (QVContainerOpUndoPolicy).
#include <cstdint>
#include <string>
#include <vector>

#include "QVI/qvi/Markers.h"
#include "V7Doc/analysis/AnalysisEnums.h"
#include "V7Doc/core/QVContainerPolicies.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

// A point of the stability data: where a slip surface, a load or a line
// starts or bends when it is not tied to a geometry point. "Number" is the
// label the user sees (older documents stored it as the point's "ID").
struct DataPoint {
  GID nID_ = 0;               // written only through DataPointIDPolicy
  std::int32_t nNumber_ = 0;  // "Number"
  double fX_ = 0;             // "X", m
  double fY_ = 0;             // "Y", m
  friend bool operator==(const DataPoint&, const DataPoint&) = default;
};
struct DataPointIDPolicy : QVContainerStoredIDPolicy<DataPoint, &DataPoint::nID_> {};
using DataPointTable = QVContainerTable<DataPoint, DataPointIDPolicy>;

// A surcharge load on the ground surface: a body of given unit weight over
// the outline its points draw.
struct SurchargeLoad {
  GID nID_ = 0;  // written only through SURCHARGELOADIDPolicy
  std::wstring name_;
  double fUnitWeight_ = 0;    // weight per unit volume of the surcharge, kN/m3
  std::vector<GID> vPoints_;  // outline
  GID fnNum_ = 0;             // variation; 0: constant
  VariationType variation_ = VariationType::Linear;
  friend bool operator==(const SurchargeLoad&, const SurchargeLoad&) = default;
};
struct SURCHARGELOADIDPolicy : QVContainerStoredIDPolicy<SurchargeLoad, &SurchargeLoad::nID_> {};

template <class T>
class TQVContainerTableSURCHARGELOAD
    : public QVContainerTable<T, SURCHARGELOADIDPolicy, QVContainerOpUndoPolicy<T>> {
 public:
  TQVContainerTableSURCHARGELOAD() = default;
};
using SurchargeLoadTable = TQVContainerTableSURCHARGELOAD<SurchargeLoad>;

// What a reinforcement is; it fixes which of the load's members apply.
enum class ReinforcementType : std::int32_t {
  Anchor = 0,        // a tendon with a free length and a grouted bond length
  Nail = 1,          // bonded over its whole length
  Geosynthetic = 2,  // a sheet: resistance per unit width on both faces
  Pile = 3,          // resists by shear across the slip surface
  Undefined = qvi::kNone,
};

// A reinforcement and the force it brings to a slip surface. The force on a
// surface is the least of the tensile capacity and the pull-out resistance
// of the length beyond the surface (bond resistance times length, over the
// spacing); a pile gives its shear capacity instead. A load that depends on
// the factor of safety is divided by it, as the shear resistance of the
// slip surface is: both count as resistance, mobilised to the same degree.
struct ReinforcementLoad {
  GID nID_ = 0;  // written only through REINFIDPolicy
  std::wstring name_;                                  // "Name"
  ReinforcementType type_ = ReinforcementType::Anchor;  // "Type"
  double fOutX_ = 0, fOutY_ = 0;  // "OutsidePoint.X/Y": the head, at the face, m
  double fInX_ = 0, fInY_ = 0;    // "InsidePoint.X/Y": the far end in the ground, m
  double fBondLength_ = 0;        // "BondLength": grouted length at the far end (anchors), m
  double fSpacing_ = 1;           // "Spacing": out of the section, m
  double fTensileCapacity_ = 0;   // "TensileCapacity", kN
  double fBondResistance_ = 0;    // "BondResistance": pull-out per unit length, kN/m
  double fShearCapacity_ = 0;     // "ShearCapacity" (piles), kN
  bool bFOSDependent_ = true;     // "FOSDependent"
  friend bool operator==(const ReinforcementLoad&, const ReinforcementLoad&) = default;
};
struct REINFIDPolicy : QVContainerStoredIDPolicy<ReinforcementLoad, &ReinforcementLoad::nID_> {};

template <class T>
class TQVContainerTableREINF : public QVContainerTable<T, REINFIDPolicy, QVContainerOpUndoPolicy<T>> {
 public:
  TQVContainerTableREINF() = default;
};
using ReinforcementTable = TQVContainerTableREINF<ReinforcementLoad>;

// A fully specified slip surface: the polyline its points draw, and the
// centre about which moments are taken. With no centre given (the no-value
// marker), the analysis takes one above the surface itself.
struct SLIP {
  GID nID_ = 0;  // written only through SLIPIDPolicy
  std::wstring name_;          // "Name"
  std::vector<GID> vPoints_;   // "DataPoints", left to right
  double fAxisX_ = qvi::kNoValue;  // "AxisX", m
  double fAxisY_ = qvi::kNoValue;  // "AxisY", m
  friend bool operator==(const SLIP&, const SLIP&) = default;
};
struct SLIPIDPolicy : QVContainerStoredIDPolicy<SLIP, &SLIP::nID_> {};

template <class T>
class TQVContainerTableSLIP : public QVContainerTable<T, SLIPIDPolicy, QVContainerOpUndoPolicy<T>> {
 public:
  TQVContainerTableSLIP() = default;
};
using SLIPTable = TQVContainerTableSLIP<SLIP>;

// A pressure line: free water (or another fluid) ponded on the surface, its
// surface drawn by the points; it loads the slices below it.
struct PressureLine {
  std::wstring name_;          // "Name"
  std::vector<GID> vPoints_;   // "DataPoints"
  double fUnitWeight_ = 9.807;  // "UnitWeight" of the fluid, kN/m3 (water)
  friend bool operator==(const PressureLine&, const PressureLine&) = default;
};

// A line load: a force per unit width out of the section, applied at a
// point, its direction measured counter-clockwise from the positive x axis.
struct LineLoadPoint {
  double fX_ = 0, fY_ = 0;   // "X", "Y", m
  double fMagnitude_ = 0;    // "Magnitude", kN/m
  double fDirection_ = 270;  // "Direction", degrees (270: straight down)
  friend bool operator==(const LineLoadPoint&, const LineLoadPoint&) = default;
};

}  // namespace v7

template <> const meta::MetaEnumCommon& meta::EnumTable<v7::ReinforcementType>();
