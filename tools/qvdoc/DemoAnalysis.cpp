// Demo step of the analyses: a steady seepage, a transient seepage with its
// generated and rounded time steps, and a stability analysis that takes its
// pore-water pressures from the seepage.
#include <iomanip>
#include <iostream>
#include <sstream>

#include "QVI/str/Convert.h"
#include "V7Doc/analysis/ANALYSISTable.h"
#include "V7Doc/analysis/ResultPath.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

using v7::GID;

std::string Name(const std::wstring& s) { return str::to_utf8(s); }

void PrintAnalysis(std::ostream& out, const v7::ANALYSISTable& table, GID id) {
  const v7::ANALYSIS& a = table.At(id);
  out << "  " << id << " \"" << Name(a.name) << "\": " << Name(meta::ToName(a.kind)) << ", "
      << Name(meta::ToName(a.method));
  if (a.parent != 0) out << ", parent " << a.parent << " \"" << Name(table.At(a.parent).name) << "\"";
  out << (a.IsTransient() ? ", transient" : ", steady") << "; pore-water pressure from "
      << Name(meta::ToName(a.InitPWPCondOption())) << "\n";
}

bool ShowAnalyses(DemoContext& c) {
  auto& out = c.out;
  auto& doc = *c.document;
  auto& table = doc.Analyses();

  v7::ANALYSIS steady;
  steady.DataInit(v7::AnalysisKind::Hydro);
  steady.name = L"Steady seepage";
  const GID steadyID = table.Add(steady).ID();

  v7::ANALYSIS drawdown;
  drawdown.DataInit(v7::AnalysisKind::Hydro, v7::AnlsMethod::Transient, steadyID);
  drawdown.name = L"Reservoir drawdown";
  drawdown.description = L"Ten days of drawdown, steps growing from 0.1 day";
  auto& steps = drawdown.TimeInc();
  steps.SetDuration(10);
  steps.SetIncCount(8);
  steps.SetIncType(v7::IncrementType::Exponential);
  steps.SetInitIncSize(0.1);
  steps.SetSaveMult(2);
  steps.CustomElapsed() = {5.0};
  if (auto s = steps.GenerateTimeSteps(); !s.succeeded()) {
    std::cerr << "qvdoc demo: time steps of \"Reservoir drawdown\": " << s.message_utf8() << "\n";
    return false;
  }
  const GID drawdownID = table.Add(drawdown).ID();

  v7::ANALYSIS stab;
  stab.DataInit(v7::AnalysisKind::Stab, v7::AnlsMethod::MorgensternPrice, drawdownID);
  stab.name = L"Slope stability after drawdown";
  const GID stabID = table.Add(stab).ID();
  doc.StabItems().Get(stabID).vSurcharges_.Add(
      v7::SurchargeLoad{0, L"Road fill", 20.0, {}, 0, v7::VariationType::Linear});

  out << "Analyses of the sample project:\n";
  for (GID id : {steadyID, drawdownID, stabID}) PrintAnalysis(out, table, id);

  const auto& ts = table.At(drawdownID).TimeInc();
  out << "Time steps of \"" << Name(table.At(drawdownID).name) << "\" (duration " << ts.Duration()
      << ", " << ts.IncCount() << " exponential increments from " << ts.InitIncSize()
      << ", every 2nd saved, a custom step at 5; times rounded upwards to the fewest decimals "
         "that keep them apart):\n";
  out << "  step   increment     elapsed  saved\n";
  int n = 0;
  for (const auto& step : ts.TimeIncs()) {
    std::ostringstream line;
    line << "  " << std::setw(4) << ++n << std::setw(12) << step.fIncSize << std::setw(12)
         << step.fElapsed << "  " << (step.nSave ? "yes" : "")
         << "\n";
    out << line.str();
  }

  // The children of the steady seepage, as the usage query of the table finds them.
  const auto chain = table.Ancestors(stabID);
  out << "\"" << Name(table.At(stabID).name) << "\" starts from";
  for (GID a : chain) out << " " << a << " \"" << Name(table.At(a).name) << "\"";
  out << "\n";
  const auto last = v7::v7qvi::analysis::ResultPath(L"", L"", L"drawdown.csv",
                                                    v7::v7qvi::analysis::kStepLast);
  out << "Its pore pressures would come from the result path \"" << Name(last.FullPath())
      << "\" (" << Name(v7::v7qvi::analysis::ResultPath::DescriptionTimeStep(last.Step(), 0))
      << ").\n";
  return ts.TimeIncs().size() == 9 && chain.size() == 2;
}

const DemoStepRegistrar analyses(200, "Analyses: kinds, parents and time steps", &ShowAnalyses);

}  // namespace
}  // namespace qvdoc
