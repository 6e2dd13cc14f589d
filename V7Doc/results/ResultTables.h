#pragma once
// The document's tables of result views: cut lines (52), result graphs (53),
// result contours (54) and result sets (69).
//
// Result sets refer to an analysis and a contour, and graphs to their
// sources: both tables answer usage queries for those records. Result sets
// also keep their references sound: deleting the analysis or the contour
// clears the reference (0), and a full compaction renumbers it.
#include <vector>

#include "V7Doc/core/IQVContainer.h"
#include "V7Doc/core/QVContainerTable.h"
#include "V7Doc/results/CutLine.h"
#include "V7Doc/results/ResultContour.h"
#include "V7Doc/results/ResultGraph.h"
#include "V7Doc/results/ResultSet.h"

namespace v7 {

class ResultSetTable : public QVContainerTable<ResultSet>, public IQVChangeListener {
 public:
  // Subscribes to the analyses and the result contours.
  void OnRegistration() override;
  // Each set refers to its analysis and its contour.
  void OnGetUsageOf(GID container, UsageList& usage) override;
  void OnIDUpdate(GID container, const std::vector<GID>& renumber) override;
  void OnDelete(GID container, const std::vector<GID>& ids) override;
  void OnAdd(GID, const std::vector<GID>&) override {}
};

class ResultGraphTable : public QVContainerTable<ResultGraph> {
 public:
  // Each graph refers to its sources (records of any container). Graphs are
  // not repaired when a source goes: a view drops sources it cannot find.
  void OnGetUsageOf(GID container, UsageList& usage) override;
};

}  // namespace v7
