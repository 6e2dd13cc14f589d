// The document root: every collection QVDocData holds, under its member
// name and collection path, with the qualified aliases of the top-level
// members. The document is not a plain value (it owns its container manager
// and their registrations), so copy, move and comparison go member by member
// through these declarations.
#include "V7Doc/files/DocumentSchema.h"

#include "OC/Registry.h"
#include "OC/Schema.h"
#include "OC/xml/XML.h"
#include "V7Doc/document/QVDocument.h"

namespace oc {
using namespace v7;

namespace {
using Doc = QVDocument;

template <GID List>
Func2DTable& FnList(Doc& d) {
  return *d.FunctionList(List);
}

template <class D>
auto& KindItems(AnalysisDataByAnalysisID<D>& items) {
  return items.Entries();
}

// A collection whose records refer to others is registered as container
// `id`: its records' declared references answer for it.
meta::MetaDataTraits Held(GID id) { return meta::MetaDataTraits{}.Collection(id); }
}  // namespace

#define V7_DOC(expr) +[](Doc& d) -> auto& { return d.expr; }

template <>
const RecordType& TypeOf<QVDocument>() {
  static const RecordType& t =
      Schema<Doc>(L"QVDocument", MemberwiseOps<Doc>())
          .AddReach(V7_DOC(view_), L"view", L"View.Preferences")
          .AddReach(V7_DOC(currentResultContour_), L"gidCurrentDefineContour", L"View.CurrentDefineContour")
          .AddReach(V7_DOC(lastViewed_.analysis_), L"analysisLastViewed", L"View.AnalysisLastViewed",
                    meta::MetaDataTraits{}.Ref(container::Analyses))
          .AddReach(V7_DOC(lastViewed_.mode_), L"modeLastViewed", L"View.ModeLastViewed")
          .AddReach(V7_DOC(lastViewed_.resultTime_), L"resultTimeLastViewed", L"View.ResultTimeLastViewed")
          .AddReach(V7_DOC(lastViewed_.baseTime_), L"baseTimeLastViewed", L"View.BaseTimeLastViewed")
          .AddReach(V7_DOC(lastViewed_.bTimeStepsForCurrentAnalysisOnly_), L"bTimeStepsForCurrentAnalysisOnly",
                    L"View.TimeStepsForCurrentAnalysisOnly")
          .AddReach(V7_DOC(customColors_), L"customColors", L"View.CustomColors[Color]")
          .AddReach(V7_DOC(viewFont_), L"viewFont", L"View.Font")
          .AddReach(V7_DOC(window_), L"wnd", L"View.Window")
          .AddReach(V7_DOC(pointLabels_), L"pointAssocDisp", L"View.PointLabel[Point]")
          .AddReach(V7_DOC(fileInfo_), L"fileInfo", L"FileInfo")
          .AddReach(V7_DOC(userOptions_), L"globalUserOptions", L"UserOptions")
          .AddReach(V7_DOC(display_), L"page", L"Coordinates.PageCoords")
          .AddReach(V7_DOC(eng_), L"eng", L"Coordinates.EngCoords")
          .AddReach(V7_DOC(geometryCommon_), L"geometry", L"GeometryItems.Common")
          .AddReach(V7_DOC(plane_), L"plane", L"GeometryItems.Plane")
          .AddReach(V7_DOC(geometry_.Points()), L"points", L"GeometryItems.Points[Point]")
          .AddReach(V7_DOC(geometry_.Lines()), L"lines", L"GeometryItems.Lines[Lines]")
          .AddReach(V7_DOC(geometry_.Regions()), L"regions", L"GeometryItems.Regions[Region]", Held(container::Regions))
          .AddReach(V7_DOC(geometry_.Surfaces()), L"surface", L"GeometryItems.Surfaces[Surface]", Held(container::Surface))
          .AddReach(V7_DOC(meshConstraints_), L"meshConstraintAssoc", L"GeometryItems.Mesh.Constraints[GGID]",
                    Held(container::MeshConstraints))
          .AddReach(V7_DOC(meshGlobalEdgeLength_), L"meshGlobalEdgeLength", L"GeometryItems.Mesh.GlobalEdgeLength",
                    meta::MetaDataTraits{}.Bounds(0, qvi::kNoValue).Units(L"m"))
          .AddReach(V7_DOC(meshVersion_), L"meshVersion", L"GeometryItems.Mesh.Version",
                    meta::MetaDataTraits{}.Bounds(0, 2147483646))
          .AddReach(V7_DOC(geometry_.Mesh().Nodes()), L"hNodeMem", L"Items.Nodes[N]")
          .AddReach(V7_DOC(geometry_.Mesh().Elements()), L"hElemMem", L"MeshItems.Elements[EL]")
          .AddReach(V7_DOC(geometry_.Mesh().Elements1D()), L"elem1Ds", L"MeshItems.Elements1D[EL1D]")
          .AddReach(V7_DOC(geometry_.Mesh().NodePairs()), L"hNodePairMem", L"MeshItems.NodePairs[NodePair]")
          .AddReach(V7_DOC(infElemDef_), L"infElemDef", L"MeshItems.InfiniteElements")
          .AddReach(V7_DOC(materials_), L"hMatlMem", L"Materials[Material]", Held(container::Materials))
          .AddReach(V7_DOC(bcs_), L"boundaryConditions", L"BCs[BC]", Held(container::BCs))
          .AddReach(V7_DOC(structuralBarAttributes_), L"structuralBarAttributes", L"BarAttributes[BarAttribute]")
          .AddReach(V7_DOC(structuralBeamAttributes_), L"structuralBeamAttributes", L"BeamAttributes[BeamAttribute]")
          .AddReach(V7_DOC(analyses_), L"analyses", L"Analyses[Analysis]", Held(container::Analyses))
          .AddReach(V7_DOC(contexts_), L"anlsAssocs", L"Contexts[Context]", Held(container::Contexts))
          .AddReach(V7_DOC(anlsIDBySkTextID_), L"exclusiveAnlsIDbySkTextID", L"AnalysisUsesSketchTexts[AnalysisUsesSketchText]", Held(container::AnlsIDBySkTextID).Ref(container::Analyses))
          .AddReach(V7_DOC(sketch_), L"sketchItems", L"SketchItems")
          .AddReach(&FnList<11>, L"HKFns", L"Functions.Material.Hydraulic.KFns[KFn]")
          .AddReach(&FnList<12>, L"TKTempFns", L"Functions.Material.Thermal.KFnTemps[KFnTemp]")
          .AddReach(&FnList<13>, L"DifFns", L"Functions.Material.Contaminant.DiffusionFns[DiffusionFn]")
          .AddReach(&FnList<14>, L"SFns", L"Functions.Material.Hydraulic.VolWCFns[VolWCFn]")
          .AddReach(&FnList<15>, L"UWCFns", L"Functions.Material.Thermal.UnfrozenWCFns[UnfrozenWCFn]")
          .AddReach(&FnList<16>, L"AdsFns", L"Functions.Material.Contaminant.AdsorpFns[AdsorpFn]")
          .AddReach(&FnList<17>, L"StrengthFns", L"Functions.Material.StressStrain.StrengthFns[StrengthFn]")
          .AddReach(&FnList<18>, L"HydBFns", L"Functions.Boundary.Hydraulic.BoundFns[BoundFn]")
          .AddReach(&FnList<19>, L"HydMFns", L"Functions.Boundary.Hydraulic.ModFns[ModFn]")
          .AddReach(&FnList<20>, L"ConcBFns", L"Functions.Boundary.Contaminant.BoundFns[BoundFn]")
          .AddReach(&FnList<22>, L"TKFns", L"Functions.Material.Thermal.KFns[KFn]")
          .AddReach(&FnList<23>, L"VSHFns", L"Functions.Material.Thermal.VolSpecHeatFns[VolSpecHeatFn]")
          .AddReach(&FnList<24>, L"LAIFns", L"Functions.Boundary.Climate.LeafAreaIndexFns[LeafAreaIndexFn]")
          .AddReach(&FnList<25>, L"PMLFns", L"Functions.Boundary.Climate.PlantMoistLimitFns[PlantMoistLimitFn]")
          .AddReach(&FnList<26>, L"RDFns", L"Functions.Boundary.Climate.RootDepthFns[RootDepthFn]")
          .AddReach(&FnList<27>, L"ThermBFns", L"Functions.Boundary.Thermal.BoundFns[BoundFn]")
          .AddReach(&FnList<28>, L"ThermMFns", L"Functions.Boundary.Thermal.ModFns[ModFn]")
          .AddReach(&FnList<29>, L"GasBFns", L"Functions.Boundary.Gas.BoundFns[BoundFn]")
          .AddReach(&FnList<30>, L"GasMFns", L"Functions.Boundary.Gas.ModFns[ModFn]")
          .AddReach(&FnList<31>, L"StressBFns", L"Functions.Boundary.StressStrain.BoundFns[BoundFn]")
          .AddReach(&FnList<32>, L"DCFns", L"Functions.Material.StressStrain.CyclicNumFns[CyclicNumFn]")
          .AddReach(&FnList<33>, L"DPFns", L"Functions.Material.StressStrain.SeedPWPFns[SeedPWPFn]")
          .AddReach(&FnList<34>, L"DGFns", L"Functions.Material.StressStrain.GReductionFns[GReductionFn]")
          .AddReach(&FnList<35>, L"DDFns", L"Functions.Material.StressStrain.DampingRatioFns[DampingRatioFn]")
          .AddReach(&FnList<36>, L"DKaFns", L"Functions.Material.StressStrain.KAlphaCorrFns[KAlphaCorrFn]")
          .AddReach(&FnList<37>, L"DKsFns", L"Functions.Material.StressStrain.KSigmaCorrFns[KSigmaCorrFn]")
          .AddReach(&FnList<38>, L"MFSPFns", L"Functions.Material.StressStrain.MFSPWPFns[MFSPWPFn]")
          .AddReach(&FnList<39>, L"AFns", L"Functions.Material.StressStrain.AnisoFns[AnisoFn]")
          .AddReach(&FnList<40>, L"ProbFns", L"Functions.Material.StressStrain.StabProbFns[StabProbFn]")
          .AddReach(&FnList<41>, L"WeightFns", L"Functions.Material.StressStrain.WeightFns[WeightFn]")
          .AddReach(&FnList<42>, L"CohesionFns", L"Functions.Material.StressStrain.CohesionFns[CohesionFn]")
          .AddReach(&FnList<43>, L"PhiFns", L"Functions.Material.StressStrain.PhiFns[PhiFn]")
          .AddReach(&FnList<44>, L"EModFns", L"Functions.Material.StressStrain.EModulusFns[EModulusFn]")
          .AddReach(&FnList<45>, L"GmaxFns", L"Functions.Material.StressStrain.GmaxFns[GmaxFn]")
          .AddReach(&FnList<46>, L"KRedFns", L"Functions.Material.StressStrain.KRedFns[KRedFn]")
          .AddReach(&FnList<47>, L"TotalEModFns", L"Functions.Material.StressStrain.TotalEModFns[TotalEModFn]")
          .AddReach(&FnList<48>, L"TotalCFns", L"Functions.Material.StressStrain.TotalCFns[TotalCFn]")
          .AddReach(&FnList<49>, L"RecModulusFns", L"Functions.Material.StressStrain.RecModulusFns[RecModulusFn]")
          .AddReach(&FnList<50>, L"AirKFns", L"Functions.Material.Air.KFns[KFn]")
          .AddReach(&FnList<51>, L"AirBFns", L"Functions.Boundary.Air.BoundFns[BoundFn]")
          .AddReach(V7_DOC(func3Ds_), L"func3Ds", L"Functions.Func3Ds[Fn3D]")
          .AddReach(V7_DOC(cutLines_), L"cutLines", L"Contour.CutLines[CutLine]")
          .AddReach(V7_DOC(resultGraphs_), L"resultGraphs", L"Contour.ResultGraphs[ResultGraph]", Held(container::ResultGraphs))
          .AddReach(V7_DOC(resultContours_), L"resultContours", L"Contour.ResultContours[ResultContour]")
          .AddReach(V7_DOC(resultSets_), L"resultSets", L"Contour.ResultSets[ResultSet]", Held(container::ResultSets))
          .AddReach(V7_DOC(climateData_), L"climateData", L"ClimateDataSets[ClimateDataSet]")
          .AddReach(V7_DOC(thermosyphons_), L"hThermoMem", L"ThermoSyphons[ThermoSyphon]")
          .AddReach(V7_DOC(convectiveSurfaces_), L"hPipeSurfMem", L"ConvectiveSurfaces[ConvectiveSurface]")
          .AddReach(+[](Doc& d) -> auto& { return KindItems(d.soluteItems_); }, L"soluteItems", L"SoluteItems[SoluteItem]", Held(container::SoluteItems))
          .AddReach(+[](Doc& d) -> auto& { return KindItems(d.shakeItems_); }, L"shakeItems", L"ShakeItems[ShakeItem]", Held(container::ShakeItems))
          .AddReach(+[](Doc& d) -> auto& { return KindItems(d.hydroItems_); }, L"hydroItems", L"HydroItems[HydroItem]", Held(container::HydroItems))
          .AddReach(+[](Doc& d) -> auto& { return KindItems(d.deformItems_); }, L"deformItems", L"DeformItems[DeformItem]", Held(container::DeformItems))
          .AddReach(+[](Doc& d) -> auto& { return KindItems(d.stabItems_); }, L"stabItems", L"StabItems[StabItem]", Held(container::StabItems))
          .AddReach(+[](Doc& d) -> auto& { return KindItems(d.thermoItems_); }, L"thermoItems", L"ThermoItems[ThermoItem]", Held(container::ThermoItems))
          .AddReach(+[](Doc& d) -> auto& { return KindItems(d.evapoItems_); }, L"evapoItems", L"EvapoItems[EvapoItem]", Held(container::EvapoItems))
          .AddReach(V7_DOC(currentAnalysis_), L"currentAnalysis", L"CurrentAnalysis")
          .AddReach(V7_DOC(currentSlipSurface_), L"currentSlipSurface", L"CurrentResults.CurrentSlipSurface")
          .AddReach(V7_DOC(upgradeList_), L"upgradeList", L"UpgradeList[Upgrade]")
          .Done();
  return t;
}

#undef V7_DOC

}  // namespace oc

namespace v7::files {
namespace {
constexpr unsigned kMsgBadDeclarations = 31037;

// Qualified aliases of the top-level members.
struct AliasEntry {
  const wchar_t* alias;
  const wchar_t* member;
};
constexpr AliasEntry kAliases[] = {
    {L"v7::doc::Analyses", L"analyses"},
    {L"doc::Analyses", L"analyses"},
    {L"v7::doc::View::AnalysisLastViewed", L"analysisLastViewed"},
    {L"v7::doc::View::ModeLastViewed", L"modeLastViewed"},
    {L"v7::doc::View::ResultTimeLastViewed", L"resultTimeLastViewed"},
    {L"v7::doc::View::BaseTimeLastViewed", L"baseTimeLastViewed"},
    {L"defdoc::View::TimeStepsForCurrentAnalysisOnly", L"bTimeStepsForCurrentAnalysisOnly"},
    {L"doc::FileInfo", L"fileInfo"},
    {L"defdoc::FileInfo", L"fileInfo"},
    {L"doc::View::Font", L"viewFont"},
    {L"doc::View::Window", L"wnd"},
    {L"v7::doc::Geometry::Manager", L"geometry"},
    {L"v7::doc::Geometry::PointAssocDisp", L"pointAssocDisp"},
    {L"v7::doc::Sketch", L"sketchItems"},
    {L"v7::doc::AssociationsTable", L"anlsAssocs"},
    {L"doc::BCs", L"boundaryConditions"},
    {L"doc::Climate", L"climateData"},
    {L"v7::result::CutLines", L"cutLines"},
    {L"doc::Coordinates::Page", L"page"},
    {L"doc::Coordinates::Eng", L"eng"},
    {L"v7::doc::Geometry::MeshConstraintAssoc", L"meshConstraintAssoc"},
    {L"v7::doc::Geometry::Points", L"points"},
    {L"v7::doc::Geometry::Lines", L"lines"},
    {L"v7::doc::Geometry::Regions", L"regions"},
    {L"doc::Materials", L"hMatlMem"},
    {L"v7::doc::ConvectiveSurfaces", L"hPipeSurfMem"},
    {L"doc::ThermoSyphons", L"hThermoMem"},
    {L"v7::result::ResultSets", L"resultSets"},
    {L"v7::result::ResultGraphs", L"resultGraphs"},
    {L"doc::StructuralBarAttributes", L"structuralBarAttributes"},
    {L"doc::StructuralBeamAttributes", L"structuralBeamAttributes"},
    {L"v7::doc::Function::Func3Ds", L"func3Ds"},
    {L"v7::doc::ExclAnlsIDbySkTxt", L"exclusiveAnlsIDbySkTextID"},
    {L"v7::doc::Function::HydKFns", L"HKFns"},
    {L"v7::doc::Function::HydVolWCFns", L"SFns"},
    {L"v7::doc::Function::AirKFns", L"AirKFns"},
    {L"v7::doc::Function::StressCyclicNumFns", L"DCFns"},
    {L"v7::doc::Function::StressSeedPWPFns", L"DPFns"},
    {L"v7::doc::Function::StressGReductionFns", L"DGFns"},
    {L"v7::doc::Function::StressDampingRatioFns", L"DDFns"},
    {L"v7::doc::Function::StressKAlphaCorrFns", L"DKaFns"},
    {L"v7::doc::Function::StressKSigmaCorrFns", L"DKsFns"},
    {L"v7::doc::Function::StressMFSPWPFns", L"MFSPFns"},
    {L"v7::doc::Function::StressEModulusFns", L"EModFns"},
    {L"v7::doc::Function::StressGmaxFns", L"GmaxFns"},
    {L"v7::doc::Function::StressKRedFns", L"KRedFns"},
    {L"v7::doc::Function::StressTotalEModulusFns", L"TotalEModFns"},
    {L"v7::doc::Function::StressTotalCohesionFns", L"TotalCFns"},
    {L"v7::doc::Function::StressRecModulusFns", L"RecModulusFns"},
    {L"v7::doc::Function::StressAnisoFns", L"AFns"},
    {L"v7::doc::Function::StressStrengthFns", L"StrengthFns"},
    {L"v7::doc::Function::ProbFns", L"ProbFns"},
    {L"v7::doc::Function::WeightFns", L"WeightFns"},
    {L"v7::doc::Function::CohesionFns", L"CohesionFns"},
    {L"v7::doc::Function::PhiFns", L"PhiFns"},
    {L"v7::doc::Function::ThermKFns", L"TKFns"},
    {L"v7::doc::Function::ThermKTempFns", L"TKTempFns"},
    {L"v7::doc::Function::ThermUnfrozenWCFns", L"UWCFns"},
    {L"v7::doc::Function::ThermVolSpecHeatFns", L"VSHFns"},
    {L"v7::doc::Function::ContamAdsorpFns", L"AdsFns"},
    {L"v7::doc::Function::ContamDiffusionFns", L"DifFns"},
    {L"v7::doc::Function::AirBoundFns", L"AirBFns"},
    {L"v7::doc::Function::HydBoundFns", L"HydBFns"},
    {L"v7::doc::Function::HydBoundModFns", L"HydMFns"},
    {L"v7::doc::Function::ThermBoundFns", L"ThermBFns"},
    {L"v7::doc::Function::ThermBoundModFns", L"ThermMFns"},
    {L"v7::doc::Function::GasBoundFns", L"GasBFns"},
    {L"v7::doc::Function::GasBoundModFns", L"GasMFns"},
    {L"v7::doc::Function::StressBoundFns", L"StressBFns"},
    {L"v7::doc::Function::ContamBoundFns", L"ConcBFns"},
    {L"v7::doc::Function::ClimateBoundLeafAreaIndexFns", L"LAIFns"},
    {L"v7::doc::Function::ClimateBoundPlantMoistLimitFns", L"PMLFns"},
    {L"v7::doc::Function::ClimateBoundRootDepthFns", L"RDFns"},
};

gtl::status Register() {
  auto& reg = oc::OCRegistry::Instance();
  const oc::RecordType& root = oc::TypeOf<QVDocument>();
  reg.RegisterOC(root, meta::MetaPersistTraits::TagFromTagName(kDocumentRootTag), {},
                 kDocumentFormatVersion);
  for (const AliasEntry& a : kAliases) oc::OCAliasRegistrator(root, {a.alias, a.member});
  // Lines name their end points: the points are written, and read, first.
  oc::xml::RegisterPersistanceOrdering(L"GeometryItems.Points", L"GeometryItems.Lines");
  if (auto s = reg.InitializationComplete(); s.failed())
    return gtl::status::error(kMsgBadDeclarations, s.message());
  for (const auto& s : root.DeclarationErrors())
    if (s.failed()) return gtl::status::error(kMsgBadDeclarations, s.message());
  return {};
}

// Declared at library load.
const gtl::status kRegisteredAtLoad = RegisterDocumentSchema();
}  // namespace

gtl::status RegisterDocumentSchema() {
  static const gtl::status result = Register();
  return result;
}

oc::IODS DocumentStore(QVDocument& doc) { return oc::IODS{&oc::TypeOf<QVDocument>(), &doc}; }

}  // namespace v7::files
