// Demo steps of the document core: identifiers, deletion, compaction, usage
// queries and session IDs, shown on a scratch document; and the closing
// summary of the sample project.
#include <iostream>

#include "QVI/str/Convert.h"
#include "tools/qvdoc/Commands.h"

namespace qvdoc {
namespace {

using v7::GID;

void PrintSessions(std::ostream& out, const v7::QVDocument& doc, GID maxSession) {
  out << "  sessions:";
  for (GID s = 1; s <= maxSession; ++s) out << "  " << s << "->" << doc.AnalysisIDBySessionID(s);
  out << "\n";
}

void PrintAnalyses(std::ostream& out, const v7::QVDocument& doc) {
  out << "  analyses (" << doc.Analyses().Size() << " slots):";
  for (auto it = doc.Analyses().begin(); it != doc.Analyses().end(); ++it)
    out << "  " << it.ID() << "=\"" << str::to_utf8(it->name) << "\"";
  out << "\n";
}

bool ShowSpine(DemoContext& c) {
  auto& out = c.out;
  v7::QVDocument doc;
  doc.DataInit();
  auto& analyses = doc.Analyses();
  for (const wchar_t* name : {L"Initial seepage", L"Drawdown", L"Stability"}) {
    v7::ANALYSIS a;
    a.DataInit(v7::AnalysisKind::Hydro);
    a.name = name;
    analyses.Add(a);
  }
  analyses.At(3).kind = v7::AnalysisKind::Stab;
  analyses.At(3).parent = 1;
  // Per-kind data refer to their analyses; a usage query finds them.
  doc.HydroItems().Get(1);
  doc.HydroItems().Get(2);
  doc.StabItems().Get(3);
  out << "Added three analyses.\n";
  PrintAnalyses(out, doc);
  PrintSessions(out, doc, 3);

  v7::UsageList usage;
  doc.ContainerManager().GetUsageOf(v7::container::Analyses, usage);
  out << "Usage of the analyses (who refers to each):\n";
  for (GID a = 1; a < usage.size(); ++a) {
    out << "  analysis " << a << ":";
    for (const auto& g : usage[a])
      out << " " << str::to_utf8(doc.ContainerManager().GetContainer(g.container)->Name()) << "["
          << g.record << "]";
    out << "\n";
  }

  analyses.Delete({2});
  out << "Deleted analysis 2: its ID stays reserved until a full compaction.\n";
  PrintAnalyses(out, doc);
  PrintSessions(out, doc, 3);
  const auto added = analyses.Add(analyses.At(1));
  out << "A new analysis takes ID " << added.ID() << ", not the reserved 2.\n";
  analyses.Delete({added.ID()});
  out << "Deleting that last one trims the table back to " << analyses.Size() << " slots.\n";

  doc.ContainerManager().FullCompact();
  out << "After a full compaction the IDs are dense again and sessions follow their analyses:\n";
  PrintAnalyses(out, doc);
  PrintSessions(out, doc, 4);
  out << "Stability data now belongs to analysis " << doc.StabItems().Entries().front().first
      << ".\n";
  return doc.AnalysisIDBySessionID(3) == 2 && doc.AnalysisIDBySessionID(2) == 0;
}

bool ShowSummary(DemoContext& c) {
  auto& doc = *c.document;
  auto& out = c.out;
  out << "Collections of the sample project (GID, name, records):\n";
  v7::UsageList sizes;
  for (v7::IQVContainer* container : doc.ContainerManager()) {
    const auto n = doc.ContainerManager().MaxID(container->ID());
    if (n > 1)
      out << "  " << container->ID() << " \"" << str::to_utf8(container->Name()) << "\": " << n - 1
          << "\n";
  }
  out << "  (" << doc.ContainerManager().Count() << " collections registered)\n";
  return true;
}

const DemoStepRegistrar spine(100, "Document spine: IDs, deletion, compaction, usage", &ShowSpine);
const DemoStepRegistrar summary(1000, "Sample project summary", &ShowSummary);

}  // namespace
}  // namespace qvdoc
