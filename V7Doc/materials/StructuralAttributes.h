#pragma once
// Structural attributes given to geometry lines: bars (collection 6,
// "StructuralBarAttributes"), which carry axial force only, and beams
// (collection 7, "StructuralBeamAttributes"), which also bend. Lines name
// the attribute they use through the analysis contexts ("LineUsesBars",
// "LineUsesBeams").
//
// The stiffness of an element of unit thickness out of the section is the
// attribute's over its spacing: a row of anchors 2 m apart acts as a bar of
// E*A/2 per metre (the equivalent-plate idealisation of plane-strain
// analyses, e.g. Potts & Zdravkovic, 2001).
//
// A deleted attribute is marked by a flag of its own, never persisted: a
// record read from a file is always live, whatever its values.
#include <cstdint>
#include <string>

#include "QVI/qvi/Markers.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

struct StructuralBarAttribute {
  std::wstring name_;                        // "Name"
  double fEModulus_ = 2.0e8;                 // "EModulus", kPa (steel)
  double fArea_ = 0.001;                     // "Area": cross-section, m2
  double fSpacing_ = 1;                      // "Spacing": out of the section, m
  double fTensileCapacity_ = qvi::kNoValue;  // "TensileCapacity", kN; no value: unlimited
  double fCompressiveCapacity_ = qvi::kNoValue;  // "CompressiveCapacity", kN; no value: unlimited
  double fPreForce_ = 0;                     // "PreForce": prestress, kN (tension positive)
  std::uint32_t nColor_ = 0x000080;          // "Color"
  bool bMissing_ = false;                    // deleted (never persisted)
  friend bool operator==(const StructuralBarAttribute&, const StructuralBarAttribute&) = default;
};
inline bool IsMissing(const StructuralBarAttribute& r) { return r.bMissing_; }
inline void SetMissing(StructuralBarAttribute& r) {
  r = StructuralBarAttribute{};
  r.bMissing_ = true;
}

struct StructuralBeamAttribute {
  std::wstring name_;                  // "Name"
  double fEModulus_ = 2.0e8;           // "EModulus", kPa (steel)
  double fArea_ = 0.01;                // "Area": cross-section, m2
  double fMomentOfInertia_ = 1.0e-5;   // "MomentOfInertia", m4
  double fSpacing_ = 1;                // "Spacing": out of the section, m
  double fUnitWeight_ = 0;             // "UnitWeight": weight per length, kN/m
  double fYieldMoment_ = qvi::kNoValue;  // "YieldMoment", kN m; no value: stays elastic
  std::uint32_t nColor_ = 0x008000;    // "Color"
  bool bMissing_ = false;              // deleted (never persisted)
  friend bool operator==(const StructuralBeamAttribute&, const StructuralBeamAttribute&) = default;
};
inline bool IsMissing(const StructuralBeamAttribute& r) { return r.bMissing_; }
inline void SetMissing(StructuralBeamAttribute& r) {
  r = StructuralBeamAttribute{};
  r.bMissing_ = true;
}

using StructuralBarAttributeTable = QVContainerTable<StructuralBarAttribute>;
using StructuralBeamAttributeTable = QVContainerTable<StructuralBeamAttribute>;

}  // namespace v7
