#include "tests/V7Doc/files/SampleDocument.h"

namespace v7::testing {

void FillSampleDocument(QVDocument& doc) {
  doc.DataInit();
  for (int i = 1; i <= 4; ++i) {
    ANALYSIS a;
    a.DataInit(i % 2 ? AnalysisKind::Hydro : AnalysisKind::Stab);
    a.name = L"Stage " + std::to_wstring(i) + L" <&\"'>";
    a.parent = i > 1 ? 1 : 0;
    a.fLambda_ = 0.1 * i;
    a.TimeInc_.vCustomElapsed = {1.0 / 3.0, 86400.0 * i};
    a.inputFiles_.pathPWP = v7qvi::analysis::ResultPath(L"C:\\p", L"Stage 1", L"pwp.csv", i);
    doc.Analyses().Add(a);
  }
  // A transient analysis: its kind's defaults of the nested blocks differ
  // from the blocks' own, which the writer and reader must agree on.
  ANALYSIS transient;
  transient.DataInit(AnalysisKind::Hydro, AnlsMethod::Transient);
  transient.name = L"Drawdown";
  transient.TimeInc_.SetIncCount(10);
  transient.TimeInc_.SetDuration(1);
  doc.Analyses().Add(transient);
  doc.Analyses().Delete({2});
  auto& geo = doc.Geometry();
  for (int i = 0; i < 4; ++i) geo.Points().Add(Geom::Point{i * 1.5, -0.25 * i});
  geo.Lines().Add(Geom::Line{1, 2});
  geo.Lines().Add(Geom::Line{2, 3});
  geo.Lines().Add(Geom::Line{3, 4});
  geo.Lines().Delete({2});
  Geom::Region r;
  r.pointIDs_ = {1, 2, 3};
  r.nMaterialID_ = 1;
  geo.Regions().Add(r);
  // A mesh with an emptied element and line element between live ones:
  // their numbers must survive a reload.
  auto& mesh = geo.Mesh();
  for (int i = 0; i < 6; ++i) mesh.AddNode(i % 3 * 1.0, i / 3 * 0.1 - 1e-300);
  mesh.AddElement(ELEM{{1, 2, 5, 4, 0, 0, 0, 0}, 1, 4});
  mesh.AddElement(ELEM{});
  mesh.AddElement(ELEM{{2, 3, 6, 0, 0, 0, 0, 0}, 1, 3});
  mesh.AddElement1D(ELEM1D{});
  mesh.AddElement1D(ELEM1D{{1, 2, 0, 0, 0, 0, 0, 0}, 1, 2});
  mesh.NodePairs().push_back(NodePair{2, 5});
  doc.ExclusiveAnlsIDBySkTextID().Insert(7, 1);
  doc.ExclusiveAnlsIDBySkTextID().Insert(3, 3);
  Func2D f(L"Silty sand K", L"drawn", IFn());
  (void)f.SetFnText(L"Linear(SlopeAfter=0)");
  f.Points() = {{1, 2, 0}, {3, 4, 0.5}};
  doc.FunctionList(11)->Add(f);
  doc.FunctionList(11)->Add(Func2D(L"second", L"", IFn()));
  doc.FunctionList(11)->Add(Func2D(L"third", L"", IFn()));
  doc.FunctionList(11)->Delete({2});
  doc.FunctionList(51)->Add(Func2D(L"Air", L"", IFn::Constant(2.5)));
  MATL clay;
  clay.sDescription() = L"Clay";
  clay.HydroModel() = HydroMatlModel::SatUnsat;
  clay.Hydraulic().dHKSat() = 1e-8;
  clay.StabModel() = StabMatlModel::MohrCoulomb;
  clay.Stress().fnCohesion() = IFn::Constant(8);
  clay.Stress().fnPhiPrime() = IFn::Constant(24.5);
  doc.Materials().Add(clay);
  doc.Materials().Add(MATL());
  doc.Materials().Delete({2});
  BC drain;
  drain.name = L"Drain";
  (void)drain.SetSlot(DOFType::Hydraulic, L"Constant(BType=1,Value=42)");
  SetBCDefaultColour(drain);
  doc.BCs().Add(drain);
  CLIMATE_INFO climate;
  climate.DataInit();
  climate.wsTitle = L"Week";
  CLIMATEENTRY day;
  day.nDay = 1;
  day.fmaxT = 14.5;
  climate.hClimateMem.push_back(day);
  doc.ClimateData().Add(climate);
  ResultContour contour;
  contour.eType_ = DataParamType::PoreWaterPressure;
  contour.fMinLevel_ = -100;
  doc.ResultContours().Add(contour);
  doc.StabItems().Get(3).nNumTrials_ = 500;
  doc.HydroItems().Get(1).vInitialWaterTables_.push_back(WaterTableEntry{L"WT", {1, 2}, {1}, InputDefinition::Define, false});
  doc.ViewPreferences().fFontSize = 10.5;
  Associations context;
  context.name_ = L"ctx";
  context.nAnalysisID_ = 1;
  context.regionUsesMaterials_.push_back(RegionUsesMaterial{1, 1});
  context.hydBCIDByGGID.push_back(GeometryUsesBC{container::Lines, 1, 1});
  doc.Contexts().Add(context);
}

}  // namespace v7::testing
