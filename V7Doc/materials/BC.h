#pragma once
// A boundary condition (collection 5, "BCs"): for each field an analysis can
// solve, at most one boundary function. Geometry items get a BC per field
// through the association maps of their analysis context.
#include <array>
#include <bitset>
#include <cstdint>
#include <string>

#include "V7Doc/core/QVContainerTable.h"
#include "V7Doc/functions/FnImpl.h"
#include "V7Doc/materials/BoundaryTypes.h"

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

class BC {
 public:
  // The constrained fields: one bit per DOFType value, except that the x and
  // y displacement slots both set the XDisp bit (one "displacement" field).
  using DOFSetType = std::bitset<kNumDOF + 1>;

  std::wstring name;           // "Name"
  std::uint32_t colour = 0;    // "Color", red in the low byte
  IFn fnHydBoundary;           // "Hydraulic"
  IFn fnAirBoundary;           // "Air"
  IFn fnThermBoundary;         // "Thermal"
  IFn fnContamBoundary;        // "Contaminant"
  IFn fnGasBoundary;           // "Gas"
  IFn fnXDispBoundary;         // "XDisp"
  IFn fnYDispBoundary;         // "YDisp"
  IFn fnRotBoundary;           // "Rotation"

  // The function of one slot; an unknown slot gives the shared undefined
  // function.
  const IFn& DOF(DOFType slot) const;
  // The same, mutable; null for an unknown slot.
  IFn* MutableDOF(DOFType slot);
  // The fields the record constrains.
  DOFSetType DOFSet() const;
  // The position of DOFSet() in the table of ten field sets; 0 when none.
  BC_Type BCType() const;

  // The slot's function as text, and back. Text that names a boundary kind
  // builds that kind for the slot's field; text that builds nothing is kept
  // (as an undefined function holding it) so that it is written back.
  template <DOFType D>
  std::wstring SlotText() const {
    return DOF(D).as_wstring();
  }
  // The persisted setter of slot D: a text that builds no boundary function
  // is kept as written (undefined, so that saving writes it back) and the
  // warning names the text and the error.
  template <DOFType D>
  gtl::status SetSlotText(const std::wstring& text) {
    return SetSlotKeepingText(D, text);
  }
  gtl::status SetSlotKeepingText(DOFType slot, const std::wstring& text);
  // Sets slot `slot` from its text; the status of building the function.
  gtl::status SetSlot(DOFType slot, const std::wstring& text);

  friend bool operator==(const BC&, const BC&) = default;
};

// Missing: no name and every slot undefined.
bool IsMissing(const BC& bc);
// Empties the name and resets the eight slots.
void SetMissing(BC& bc);

// The category of the first filled slot among hydraulic, air, thermal,
// contaminant, gas and rotation (the displacement slots never decide it).
BCategory GetBTypeCategory(const BC& bc);
// The category of a type value of one field.
BCategory GetBTypeCategory(DOFType field, std::int32_t type);

// Sets bc.colour when a default can be derived: thermal climate first, then
// the displacement type, then the category. Leaves it alone otherwise.
void SetBCDefaultColour(BC& bc);

// Colours (red in the low byte).
namespace bc_colour {
inline constexpr std::uint32_t kClimate = 0x008000;   // green 128
inline constexpr std::uint32_t kPrimary = 0x0000C0;   // red 192
inline constexpr std::uint32_t kFlux = 0xFFC000;      // green 192, blue 255
inline constexpr std::uint32_t kUnitFlux = 0xFF0000;  // blue 255
}  // namespace bc_colour

// Boundary conditions are edited by the user: the table takes part in the
// undo history.
class BCTable : public QVContainerTable<BC, QVContainerNoStoredIDPolicy<BC>, QVContainerOpUndoPolicy<BC>> {
 public:
  BCTable() = default;
};

}  // namespace v7
