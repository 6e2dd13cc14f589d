#include "V7Doc/materials/BC.h"

#include "V7Doc/functions/FnConst.h"
#include "V7Doc/materials/BoundaryFns.h"
#include "V7Doc/materials/RecordMembers.h"

namespace v7 {

namespace {
constexpr std::array<DOFType, 6> kCategoryOrder{DOFType::Hydraulic, DOFType::Air,
                                                DOFType::Thermal,   DOFType::Contaminant,
                                                DOFType::Gas,       DOFType::Rotation};

// The ten field sets of BC_Type, by position.
const std::array<BC::DOFSetType, 10>& FieldSets() {
  static const std::array<BC::DOFSetType, 10> sets = [] {
    auto bit = [](DOFType d) { return BC::DOFSetType().set(static_cast<std::size_t>(d)); };
    return std::array<BC::DOFSetType, 10>{
        BC::DOFSetType(),
        bit(DOFType::Hydraulic),
        bit(DOFType::Air),
        bit(DOFType::Thermal),
        bit(DOFType::Contaminant),
        bit(DOFType::Gas),
        bit(DOFType::Hydraulic) | bit(DOFType::Air),
        bit(DOFType::Hydraulic) | bit(DOFType::Thermal),
        bit(DOFType::XDisp),
        bit(DOFType::XDisp) | bit(DOFType::Rotation),
    };
  }();
  return sets;
}
}  // namespace

IFn* BC::MutableDOF(DOFType slot) {
  switch (slot) {
    case DOFType::Hydraulic: return &fnHydBoundary;
    case DOFType::Air: return &fnAirBoundary;
    case DOFType::Thermal: return &fnThermBoundary;
    case DOFType::Contaminant: return &fnContamBoundary;
    case DOFType::Gas: return &fnGasBoundary;
    case DOFType::XDisp: return &fnXDispBoundary;
    case DOFType::YDisp: return &fnYDispBoundary;
    case DOFType::Rotation: return &fnRotBoundary;
  }
  return nullptr;
}

const IFn& BC::DOF(DOFType slot) const {
  if (IFn* f = const_cast<BC*>(this)->MutableDOF(slot)) return *f;
  return IFn::FnUndefined();
}

BC::DOFSetType BC::DOFSet() const {
  DOFSetType set;
  for (int d = 1; d <= kNumDOF; ++d) {
    const auto slot = static_cast<DOFType>(d);
    if (DOF(slot).IsUndefined()) continue;
    set.set(static_cast<std::size_t>(slot == DOFType::YDisp ? DOFType::XDisp : slot));
  }
  return set;
}

BC_Type BC::BCType() const {
  const DOFSetType set = DOFSet();
  const auto& sets = FieldSets();
  for (std::size_t i = 0; i < sets.size(); ++i)
    if (sets[i] == set) return static_cast<BC_Type>(i);
  return BC_Type::None;
}

gtl::status BC::SetSlot(DOFType slot, const std::wstring& text) {
  IFn* f = MutableDOF(slot);
  if (!f) return gtl::status::error(35004, static_cast<int>(slot));
  gtl::status s = CreateBoundaryFn(slot, text, *f);
  if (!s.succeeded() && f->IsUndefined() && !text.empty()) SetFnMemberText(*f, text);
  return s;
}

gtl::status BC::SetSlotKeepingText(DOFType slot, const std::wstring& text) {
  const gtl::status s = SetSlot(slot, text);
  if (s.succeeded()) return s;
  IFn* f = MutableDOF(slot);
  if (!f) return s;
  // A kind whose attributes partly failed would be written back with only
  // the attributes it read: keep the whole text instead.
  if (!text.empty() && f->as_wstring() != text) *f = IFn(new FnUndefinedType(text));
  return FnTextKeptWarning(text, s);
}

bool IsMissing(const BC& bc) {
  if (!bc.name.empty()) return false;
  for (int d = 1; d <= kNumDOF; ++d)
    if (!bc.DOF(static_cast<DOFType>(d)).IsUndefined()) return false;
  return true;
}

void SetMissing(BC& bc) {
  bc.name.clear();
  for (int d = 1; d <= kNumDOF; ++d) bc.MutableDOF(static_cast<DOFType>(d))->reset();
}

BCategory GetBTypeCategory(DOFType field, std::int32_t t) {
  using C = BCategory;
  switch (field) {
    case DOFType::Hydraulic:
      switch (t) {
        case 1: case 4: case 6: case 7: case 8: return C::Primary;
        case 2: return C::Flux;
        case 3: case 5: case 9: case 10: return C::UnitFlux;
        default: return C::None;
      }
    case DOFType::Air:
      return t == 1 || t == 2 ? C::Primary : C::None;
    case DOFType::Thermal:
      switch (t) {
        case 1: return C::Primary;
        case 2: case 5: case 7: return C::Flux;
        case 3: case 4: case 6: case 8: return C::UnitFlux;
        default: return C::None;
      }
    case DOFType::Contaminant:
      switch (t) {
        case 1: case 4: case 5: case 6: case 7: return C::Primary;
        case 2: return C::Flux;
        case 3: return C::UnitFlux;
        default: return C::None;
      }
    case DOFType::Gas:
      switch (t) {
        case 1: return C::Primary;
        case 2: return C::Flux;
        case 3: case 4: return C::UnitFlux;
        default: return C::None;
      }
    case DOFType::Rotation:
      return t == 1 ? C::Primary : t == 2 ? C::Flux : C::None;
    default:
      return C::None;
  }
}

BCategory GetBTypeCategory(const BC& bc) {
  for (DOFType d : kCategoryOrder) {
    const IFn& f = bc.DOF(d);
    if (f.IsUndefined()) continue;
    return GetBTypeCategory(d, BoundaryTypeOf(f));
  }
  return BCategory::None;
}

namespace {
// The boundary kind of a function from its "Type" attribute: "Constant" 1,
// "Function" 2, "Climate" 3, "ThermoSyphon" 4, "PipeSurface" 5, else 0.
int BoundaryKind(const IFn& fn) {
  FnAttr type(L"Type");
  if (!fn->LookupAttribute(type)) return 0;
  static const wchar_t* const kKinds[] = {L"Constant", L"Function", L"Climate", L"ThermoSyphon",
                                          L"PipeSurface"};
  for (int i = 0; i < 5; ++i)
    if (type.Value == kKinds[i]) return i + 1;
  return 0;
}
}  // namespace

void SetBCDefaultColour(BC& bc) {
  if (!bc.fnThermBoundary.IsUndefined() && BoundaryKind(bc.fnThermBoundary) == 3) {
    bc.colour = bc_colour::kClimate;
    return;
  }
  const IFn* disp = !bc.fnXDispBoundary.IsUndefined()   ? &bc.fnXDispBoundary
                    : !bc.fnYDispBoundary.IsUndefined() ? &bc.fnYDispBoundary
                                                        : nullptr;
  if (disp) {
    const std::int32_t t = BoundaryTypeOf(*disp);
    if (t == 1) bc.colour = bc_colour::kPrimary;
    else if (t >= 2 && t <= 6) bc.colour = bc_colour::kFlux;
    else if (t >= 7 && t <= 10) bc.colour = bc_colour::kUnitFlux;
    return;
  }
  switch (GetBTypeCategory(bc)) {
    case BCategory::Primary: bc.colour = bc_colour::kPrimary; break;
    case BCategory::Flux: bc.colour = bc_colour::kFlux; break;
    case BCategory::UnitFlux: bc.colour = bc_colour::kUnitFlux; break;
    default: break;
  }
}

}  // namespace v7
