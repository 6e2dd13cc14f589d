// Persistence declarations of boundary conditions, climate data,
// thermosyphons, convective surfaces and the analysis contexts.
#include "V7Doc/materials/MaterialsSchema.h"

#include "OC/References.h"
#include "V7Doc/materials/BoundaryFns.h"

namespace oc {
using namespace v7;

// Each BC slot is persisted as its function's text and rebuilt for its field.
// A slot's function may name a record (a boundary function of the field's
// list, a climate data set, a thermosyphon, a convective surface): the
// function says which (BFnImpl::Reference), and a renumbered or deleted
// record gives the slot a copy naming the new number.
template <DOFType D>
void SlotRefs(void* rec, RefSink& sink) {
  IFn* fn = static_cast<BC*>(rec)->MutableDOF(D);
  const auto* b = fn ? dynamic_cast<const BFnImpl*>(fn->get()) : nullptr;
  if (!b) return;
  const GGID r = b->Reference();
  const GID now = sink.Visit(r.container, r.record);
  if (now != r.record) *fn = IFn(b->Renamed(now));
}

template <DOFType D>
meta::MetaDataTraits Slot() {
  return meta::MetaDataTraits{}.RefsIn(&SlotRefs<D>);
}

template <>
const RecordType& TypeOf<BC>() {
  static const RecordType& t = Schema<BC>(L"BC")
                                   .Add(&BC::name, L"name", L"Name")
                                   .Add(&BC::colour, L"colour", L"Color")
                                   .Add(&BC::SlotText<DOFType::Hydraulic>,
                                        &BC::SetSlotText<DOFType::Hydraulic>, L"fnHydBoundary",
                                        L"Hydraulic", Slot<DOFType::Hydraulic>())
                                   .Add(&BC::SlotText<DOFType::Air>, &BC::SetSlotText<DOFType::Air>,
                                        L"fnAirBoundary", L"Air", Slot<DOFType::Air>())
                                   .Add(&BC::SlotText<DOFType::Thermal>,
                                        &BC::SetSlotText<DOFType::Thermal>, L"fnThermBoundary",
                                        L"Thermal", Slot<DOFType::Thermal>())
                                   .Add(&BC::SlotText<DOFType::Contaminant>,
                                        &BC::SetSlotText<DOFType::Contaminant>,
                                        L"fnContamBoundary", L"Contaminant", Slot<DOFType::Contaminant>())
                                   .Add(&BC::SlotText<DOFType::Gas>, &BC::SetSlotText<DOFType::Gas>,
                                        L"fnGasBoundary", L"Gas", Slot<DOFType::Gas>())
                                   .Add(&BC::SlotText<DOFType::XDisp>,
                                        &BC::SetSlotText<DOFType::XDisp>, L"fnXDispBoundary",
                                        L"XDisp", Slot<DOFType::XDisp>())
                                   .Add(&BC::SlotText<DOFType::YDisp>,
                                        &BC::SetSlotText<DOFType::YDisp>, L"fnYDispBoundary",
                                        L"YDisp", Slot<DOFType::YDisp>())
                                   .Add(&BC::SlotText<DOFType::Rotation>,
                                        &BC::SetSlotText<DOFType::Rotation>, L"fnRotBoundary",
                                        L"Rotation", Slot<DOFType::Rotation>())
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<CLIMATEENTRY>() {
  using T = CLIMATEENTRY;
  static const RecordType& t = Schema<T>(L"CLIMATEENTRY")
                                   .Add(&T::nDay, L"nDay", L"Day")
                                   .Add(&T::fmaxT, L"fmaxT", L"MaxTemp")
                                   .Add(&T::fminT, L"fminT", L"MinTemp")
                                   .Add(&T::fmaxRH, L"fmaxRH", L"MaxRH")
                                   .Add(&T::fminRH, L"fminRH", L"MinRH")
                                   .Add(&T::fWind, L"fWind", L"Wind")
                                   .Add(&T::fPrecip, L"fPrecip", L"Precip")
                                   .Add(&T::dStartPrecip, L"dStartPrecip", L"StartPrecip")
                                   .Add(&T::dEndPrecip, L"dEndPrecip", L"EndPrecip")
                                   .Add(&T::dPotEvap, L"dPotEvap", L"Evap")
                                   .Add(&T::dNetRad, L"dNetRad", L"NetRad")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<CLIMATEMODIFIERS>() {
  using T = CLIMATEMODIFIERS;
  static const RecordType& t = Schema<T>(L"CLIMATEMODIFIERS")
                                   .Add(&T::nMaxTemp, L"nMaxTemp", L"MaxTemp")
                                   .Add(&T::nMinTemp, L"nMinTemp", L"MinTemp")
                                   .Add(&T::nMaxRH, L"nMaxRH", L"MaxRH")
                                   .Add(&T::nMinRH, L"nMinRH", L"MinRH")
                                   .Add(&T::fWind, L"fWind", L"Wind")
                                   .Add(&T::fPrecip, L"fPrecip", L"Precip")
                                   .Add(&T::nStartPrecip, L"nStartPrecip", L"StartPrecip")
                                   .Add(&T::nEndPrecip, L"nEndPrecip", L"EndPrecip")
                                   .Add(&T::fEvap, L"fEvap", L"Evap")
                                   .Add(&T::fNetRad, L"fNetRad", L"NetRad")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<CLIMATE_INFO>() {
  using T = CLIMATE_INFO;
  static const RecordType& t =
      Schema<T>(L"CLIMATE_INFO")
          .Add(&T::wsTitle, L"wsTitle", L"Name")
          .Add(&T::fLat, L"fLat", L"Latitude")
          .Add(&T::eEnergyMethod, L"eEnergyMethod", L"EnergyMethod")
          .Add(&T::eDist, L"eDist", L"Distribution")
          .Add(&T::nStartMonth, L"nStartMonth", L"StartMonth")
          .Add(&T::nStartDay, L"nStartDay", L"StartDay")
          .Add(&T::nStartYear, L"nStartYear", L"StartYear")
          .Add(&T::Mod, L"Mod", L"Modifier")
          .Add(&T::hClimateMem, L"hClimateMem", L"ClimateEntries[ClimateEntry]")
          .Done();
  return t;
}

template <>
const RecordType& TypeOf<THERMOSYPHON_INFO>() {
  using T = THERMOSYPHON_INFO;
  static const RecordType& t = Schema<T>(L"THERMOSYPHON_INFO")
                                   .Add(&T::wsName, L"wsName", L"Name")
                                   .Add(&T::fEvaporatorLength, L"fEvaporatorLength", L"EvaporatorLength")
                                   .Add(&T::fCondenserArea, L"fCondenserArea", L"CondenserArea")
                                   .Add(&T::fHeatTransferCoef, L"fHeatTransferCoef", L"HeatTransferCoef")
                                   .Add(&T::fOperatingDelta, L"fOperatingDelta", L"OperatingDelta")
                                   .Add(&T::nConvective, L"nConvective", L"Convective")
                                   .Done();
  return t;
}

template <>
const RecordType& TypeOf<PIPESURF_INFO>() {
  using T = PIPESURF_INFO;
  static const RecordType& t = Schema<T>(L"PIPESURF_INFO")
                                   .Add(&T::wsName, L"wsName", L"Name")
                                   .Add(&T::fHeatTransferCoef, L"fHeatTransferCoef", L"HeatTransferCoef")
                                   .Add(&T::fFluidTemp, L"fFluidTemp", L"FluidTemp")
                                   .Add(&T::bSmallq, L"bSmallq", L"UseAsSurfaceAreaBoundary")
                                   .Done();
  return t;
}

}  // namespace oc
