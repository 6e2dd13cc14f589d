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

// The named table types of the result descriptions: plain tables whose IDs
// are the slot positions.
template <class T>
class TQVContainerTableResultSet : public QVContainerTable<T> {
 public:
  TQVContainerTableResultSet() = default;
};
template <class T>
class TQVContainerTableResultContour : public QVContainerTable<T> {
 public:
  TQVContainerTableResultContour() = default;
};
template <class T>
class TQVContainerTableResultGraph : public QVContainerTable<T> {
 public:
  TQVContainerTableResultGraph() = default;
};

class ResultSetTable : public TQVContainerTableResultSet<ResultSet>, public IQVChangeListener {
 public:
  // Subscribes to the analyses and the result contours.
  void OnRegistration() override;
  // Each set refers to its analysis and its contour.
  void OnGetUsageOf(GID container, UsageList& usage) override;
  void OnIDUpdate(GID container, const std::vector<GID>& renumber) override;
  void OnDelete(GID container, const std::vector<GID>& ids) override;
  void OnAdd(GID, const std::vector<GID>&) override {}
};

class ResultContourTable : public TQVContainerTableResultContour<ResultContour> {};

class ResultGraphTable : public TQVContainerTableResultGraph<ResultGraph> {
 public:
  // Each graph refers to its sources (records of any container). Graphs are
  // not repaired when a source goes: a view drops sources it cannot find.
  void OnGetUsageOf(GID container, UsageList& usage) override;
};

}  // namespace v7
