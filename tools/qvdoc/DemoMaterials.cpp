// Demo step of the materials subsystem: materials for seepage and stability
// with their functions, boundary conditions with their default colours and
// categories, a climate data set, and the stability checks of an analysis.
#include <iomanip>
#include <sstream>
#include <iostream>

#include "QVI/str/Convert.h"
#include "V7Doc/materials/BoundaryFns.h"
#include "V7Doc/materials/MatlValidation.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

using namespace v7;

std::string Hex(std::uint32_t colour) {
  std::ostringstream s;
  s << "0x" << std::hex << std::uppercase << std::setw(6) << std::setfill('0') << colour;
  return s.str();
}

bool Materials(DemoContext& c) {
  QVDocument& doc = *c.document;
  auto& out = c.out;

  MATL clay;
  clay.sDescription() = L"Clay core";
  clay.HydroModel() = HydroMatlModel::SatUnsat;
  clay.Hydraulic().dHKSat() = 1e-8;
  clay.Hydraulic().dSatVolWC() = 0.42;
  clay.StabModel() = StabMatlModel::MohrCoulomb;
  clay.Stress().fnWeight() = 19;
  clay.Stress().fnCohesion() = IFn::Constant(8);
  clay.Stress().fnStabCohesion() = IFn::Constant(8);
  clay.Stress().fnStabPhiStored() = IFn::Constant(24);
  clay.Stress().fnPhiPrime() = IFn::Constant(24);
  clay.Stress().StabCohesionModel() = MatlPropModel::SpatialFunction;  // c varies in plan
  MATL sand;
  sand.sDescription() = L"Sand shell";
  sand.HydroModel() = HydroMatlModel::SatOnly;
  sand.Hydraulic().dHKSat() = 1e-4;
  sand.StabModel() = StabMatlModel::UndrainedPhiZero;
  sand.Stress().StabPhiModel() = MatlPropModel::Function;  // ignored: undrained
  sand.Stress().fnStabPhiStored() = IFn::Constant(35);
  sand.Stress().fnPhiPrime() = IFn::Constant(35);
  MATL water;
  water.sDescription() = L"Reservoir";
  water.StabModel() = StabMatlModel::NoStrength;
  for (const MATL* m : {&clay, &sand, &water}) doc.Materials().Add(*m);
  out << "Materials (" << doc.Materials().Size() << "):\n";
  for (auto it = doc.Materials().begin(); it != doc.Materials().end(); ++it) {
    out << "  " << it.ID() << " \"" << str::to_utf8(it->sDescription()) << "\" stab "
        << str::to_utf8(meta::EnumTable<StabMatlModel>().NameOf(static_cast<int>(it->StabModel())));
    if (!qvi::IsNoValue(it->fMu())) out << ", M = " << it->fMu();
    out << ", stability phi " << it->fnStabPhi()(0) << "\n";
  }

  // The stability checks, on a scratch project: three regions, each given
  // its material by the stability analysis's context, and a surcharge fill
  // under a piezometric line.
  {
    QVDocument scratch;
    scratch.DataInit();
    ANALYSIS a;
    a.DataInit(AnalysisKind::Stab);
    a.name = L"Slope stability";
    const GID stab = scratch.Analyses().Add(a).ID();
    for (Geom::Point2D p : {Geom::Point2D{0, 0}, {10, 0}, {10, 5}, {0, 5}, {-5, 8}, {15, 8}})
      scratch.Geometry().Points().AddNew(p);
    for (const MATL* m : {&clay, &sand, &water}) {
      Geom::Region r;
      r.pointIDs_ = {1, 2, 3, 4};
      const GID region = scratch.Geometry().Regions().Add(r).ID();
      const GID material = scratch.Materials().Add(*m).ID();
      scratch.Contexts().ContextFor(stab).SetRegionMaterial(region, material);
    }
    StabData& data = scratch.StabItems().Get(stab);
    data.vSurcharges_.Add(SurchargeLoad{0, L"Berm fill", 18, {1, 2, 3, 4}, 0, VariationType::Linear});
    data.vPiezometricLines_.push_back({L"PL 1", {5, 6}, {}, InputDefinition::Define, false});
    std::vector<gtl::status> statuses;
    TestStabMaterialModels(scratch.Materials(), scratch.Analyses(), stab, statuses);
    TestSurchargeLoadForWTWeight(scratch, stab, statuses);
    out << "Stability checks of \"" << str::to_utf8(a.name) << "\" (" << statuses.size()
        << " statuses):\n";
    for (const auto& s : statuses) out << "  " << s.id() << ": " << s.message_utf8() << "\n";
    out << "  models now:";
    for (auto it = scratch.Materials().begin(); it != scratch.Materials().end(); ++it)
      out << " " << str::to_utf8(meta::EnumTable<StabMatlModel>().NameOf(static_cast<int>(it->StabModel())));
    out << "\n";
  }

  // Boundary conditions, coloured by their kinds.
  const struct {
    const wchar_t* name;
    DOFType slot;
    const wchar_t* text;
  } bcs[] = {
      {L"Reservoir head", DOFType::Hydraulic, L"Constant(BType=1,Value=42)"},
      {L"Drawdown", DOFType::Hydraulic, L"Function(BType=8,HydBoundFnNum=1)"},
      {L"Infiltration", DOFType::Hydraulic, L"Constant(BType=3,Value=1e-8)"},
      {L"Surface climate", DOFType::Thermal, L"Climate(BType=1,ClimateDataSet=1)"},
      {L"Fixed base", DOFType::XDisp, L"Constant(BType=1,Value=0)"},
      {L"Ponded load", DOFType::YDisp, L"FluidPressure(Value=98.07)"},
  };
  out << "Boundary conditions:\n";
  for (const auto& b : bcs) {
    BC bc;
    bc.name = b.name;
    if (gtl::status s = bc.SetSlot(b.slot, b.text); !s.succeeded()) {
      std::cerr << "demo: " << s.message_utf8() << "\n";
      return false;
    }
    SetBCDefaultColour(bc);
    const GID id = doc.BCs().Add(bc).ID();
    out << "  " << id << " \"" << str::to_utf8(bc.name) << "\": type "
        << BoundaryTypeOf(bc.DOF(b.slot)) << ", category "
        << static_cast<int>(GetBTypeCategory(bc)) << ", colour " << Hex(bc.colour) << ", BC_Type "
        << static_cast<int>(bc.BCType()) << "\n";
  }

  // A week of weather.
  CLIMATE_INFO climate;
  climate.DataInit();
  climate.wsTitle = L"Spring week";
  climate.fLat = 52.1;
  climate.eDist = ClimateDist::SinusoidalDist;
  climate.eEnergyMethod = ClimateEnergyMethod::EstimatedNetSolarEnergy;
  for (int d = 1; d <= 7; ++d) {
    CLIMATEENTRY e;
    e.nDay = d;
    e.fmaxT = 14 + d * 0.5;
    e.fminT = 4 + d * 0.25;
    e.fmaxRH = 95;
    e.fminRH = 55;
    e.fWind = 3;
    e.fPrecip = d == 3 ? 8.5 : 0;
    e.dStartPrecip = 0.25;
    e.dEndPrecip = 0.5;
    climate.hClimateMem.push_back(e);
  }
  const GID set = doc.ClimateData().Add(climate).ID();
  out << "Climate data set " << set << " \"" << str::to_utf8(climate.wsTitle) << "\": "
      << climate.nDayCnt() << " days from month " << climate.nStartMonth << " day "
      << climate.nStartDay << ", precipitation modifier " << climate.Mod.fPrecip << " %\n";
  return true;
}

const DemoStepRegistrar kStep(250, "Materials, boundary conditions and climate", &Materials);

}  // namespace
}  // namespace qvdoc
