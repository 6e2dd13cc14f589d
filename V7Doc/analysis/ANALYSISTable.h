#pragma once
// The "Analyses" collection (container 8). An analysis's parent is a
// declared reference: in a document, a usage query of an analysis names its
// children, deleting an analysis (through any interface of the table) clears
// the links to it, and a full compaction renumbers them.
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
