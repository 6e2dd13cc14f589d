// Demo step of the results: a node table for the steady seepage analysis,
// stored in its result folder of the package, read back through the result
// table reader, and the records that describe how it is shown (a contour of
// pore-water pressure, a result set, a cut line and a graph along it).
//
// The table is a 1-D hydrostatic column: nodes every metre from y = 0 to
// y = 10 m with the water table at y = 6 m. Below the water table the
// pressure is hydrostatic, above it the suction grows at the same rate
// (no flow, so the total head is the same everywhere):
//   u = -gamma_w (y - y_wt),  gamma_w = 9.807 kN/m3,  h_p = u / gamma_w,
//   H = y + h_p = y_wt.
// A steady-state analysis saves its solution as step 1 (step 0 is the
// initial state, which a steady run does not have).
#include <cmath>
#include <cstdio>
#include <iostream>
#include <string>

#include "QVI/doc/FileName.h"
#include "QVI/str/Convert.h"
#include "V7Doc/qvifile/ResultFileNames.h"
#include "V7Doc/results/ResultPackage.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

using v7::DataParamType;
using v7::GID;

constexpr double kGammaW = 9.807;       // kN/m3
constexpr double kWaterTable = 6.0;     // m
constexpr int kSteadyStep = 1;

std::string NodeTable() {
  std::string csv = "Node,X,Y,TotalHead,PressureHead,PoreWaterPressure\r\n";
  char row[160];
  for (int n = 1; n <= 11; ++n) {
    const double y = n - 1.0;
    const double u = -kGammaW * (y - kWaterTable);
    std::snprintf(row, sizeof row, "%d,0,%g,%.10g,%.10g,%.10g\r\n", n, y, y + u / kGammaW,
                  u / kGammaW, u);
    csv += row;
  }
  return csv;
}

bool ShowResults(DemoContext& c) {
  auto& out = c.out;
  auto& doc = *c.document;
  GID analysis = 0;
  for (auto it = doc.Analyses().begin(); it != doc.Analyses().end(); ++it)
    if (it->kind == v7::AnalysisKind::Hydro && !it->IsTransient()) {
      analysis = it.ID();
      break;
    }
  if (analysis == 0) {
    std::cerr << "qvdoc demo: no steady seepage analysis to attach results to\n";
    return false;
  }
  const v7::ANALYSIS& a = doc.Analyses().At(analysis);

  // The table, under the analysis's result folder.
  const std::wstring folder = v7::qvifile::result::FName(analysis) + L"/";
  const std::wstring entry = v7::qvifile::result::NameNode(doc::file::Name(folder), kSteadyStep);
  const std::string csv = NodeTable();
  c.packageEntries.emplace_back(entry, csv);
  out << "Result table \"" << str::to_utf8(entry) << "\" of \"" << str::to_utf8(a.name)
      << "\": a hydrostatic column, water table at y = " << kWaterTable << " m ("
      << csv.size() << " bytes, CRLF rows)\n";

  // Read back three of its columns, in the order asked for.
  namespace r = v7::result;
  std::vector<DataParamType> columns;
  if (auto s = r::ParseColumnList(L"Y,PoreWaterPressure,TotalHead", columns); !s.succeeded()) {
    std::cerr << "qvdoc demo: " << s.message_utf8() << "\n";
    return false;
  }
  r::ResultTable table;
  if (auto s = r::ReadResultTable(csv, entry, columns, table); !s.succeeded()) {
    std::cerr << "qvdoc demo: " << s.message_utf8() << "\n";
    return false;
  }
  out << "Read back " << table.Rows() << " rows; the first four and the last:\n";
  const std::string text = r::FormatResultTable(table);
  std::size_t pos = 0;
  for (int line = 0; line < 5; ++line) {
    const std::size_t nl = text.find('\n', pos);
    out << "  " << text.substr(pos, nl - pos) << "\n";
    pos = nl + 1;
  }
  out << "  ...\n  " << text.substr(text.rfind('\n', text.size() - 2) + 1);
  bool hydrostatic = table.Rows() == 11;
  for (std::size_t i = 0; hydrostatic && i < table.Rows(); ++i)
    hydrostatic = std::fabs(table.At(i, 2) - kWaterTable) < 1e-9;
  out << "Total head is " << (hydrostatic ? "" : "NOT ") << "the same at every node ("
      << kWaterTable << " m): no flow, as a hydrostatic column must be.\n";

  // How the results are shown.
  v7::ResultContour contour;
  contour.eType_ = DataParamType::PoreWaterPressure;
  contour.fMinLevel_ = -40;
  contour.fLevelIncrement_ = 10;
  contour.nNumOfLevels_ = 10;
  const GID contourID = doc.ResultContours().Add(contour).ID();
  v7::ResultSet set(analysis, a, doc.ViewPreferences(), doc.Eng());
  set.contour_ = contourID;
  set.nStep_ = kSteadyStep;
  const GID setID = doc.ResultSets().Add(set).ID();
  v7::CutLine cut;
  cut.name_ = L"Column axis";
  cut.fStartX_ = 0, cut.fStartY_ = 0, cut.fEndX_ = 0, cut.fEndY_ = 10;
  cut.nNumPoints_ = 11;
  const GID cutID = doc.CutLines().Add(cut).ID();
  v7::ResultGraph graph;
  graph.SetName(L"Pore-water pressure along the column");
  graph.SetIndepParam(DataParamType::PoreWaterPressure);
  graph.SetDepParam(DataParamType::Y);
  graph.SetTimeSelection(v7::ResultTimeSelection::CurrentTime);
  graph.SetSources({v7::GGID(v7::container::CutLines, cutID)});
  const GID graphID = doc.ResultGraphs().Add(graph).ID();
  out << "Result set " << setID << " \"" << str::to_utf8(set.name_) << "\" shows step "
      << set.nStep_ << " with contour " << contourID << " (" 
      << str::to_utf8(meta::ToName(contour.eType_)) << " from " << contour.Level(0) << " to "
      << contour.Level(contour.nNumOfLevels_ - 1) << " kPa every " << contour.fLevelIncrement_
      << "); graph " << graphID << " plots it along cut line " << cutID << " ("
      << cut.Length() << " m, " << cut.nNumPoints_ << " points).\n";
  return hydrostatic;
}

const DemoStepRegistrar results(500, "Results: a node table, read back, and how it is shown",
                                &ShowResults);

}  // namespace
}  // namespace qvdoc
