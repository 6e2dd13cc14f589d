#pragma once
// The "Analyses" collection (container 8). Besides the table itself it keeps
// the parent links sound: a usage query of an analysis names its children,
// deleting an analysis clears the links to it, and a full compaction
// renumbers them.
#include <vector>

#include "QVI/gtl/status.h"
#include "V7Doc/analysis/ANALYSIS.h"
#include "V7Doc/core/QVContainerTable.h"

namespace v7 {

template <class T>
class TQVContainerTableANALYSIS : public QVContainerTable<T> {
 public:
  TQVContainerTableANALYSIS() = default;
};

class ANALYSISTable : public TQVContainerTableANALYSIS<ANALYSIS> {
 public:
  using Base = TQVContainerTableANALYSIS<ANALYSIS>;
  ANALYSISTable() = default;

  // Deletes the listed analyses; their children lose their parent (0).
  void Delete(const std::vector<GID>& ids);

  // Squeezes out deleted analyses and renumbers the parent links with them.
  void FullCompact(std::vector<GID>& renumber) override;

  // Usage of analyses: each child refers to its parent.
  void OnGetUsageOf(GID container, UsageList& usage) override;

  // Sets the parent of `child` (0 for none). Refuses a child or parent that
  // is not a live analysis and a parent that descends from the child.
  gtl::status SetParent(GID child, GID parent);

  // The live analyses whose parent is `parent`, ascending.
  std::vector<GID> Children(GID parent) const;

  // The chain of parents of `id`, nearest first; stops at a missing analysis
  // or a cycle (which SetParent never makes, but a file might hold).
  std::vector<GID> Ancestors(GID id) const;
};

}  // namespace v7
