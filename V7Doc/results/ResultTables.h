#pragma once
// The document's tables of result views: cut lines (52), result graphs (53),
// result contours (54) and result sets (69).
//
// Result sets name an analysis and a contour, graphs their sources: the
// record declarations say so, and the document's container manager answers
// usage queries and repairs those references from them.
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

class ResultSetTable : public TQVContainerTableResultSet<ResultSet> {};

class ResultContourTable : public TQVContainerTableResultContour<ResultContour> {};

class ResultGraphTable : public TQVContainerTableResultGraph<ResultGraph> {};

}  // namespace v7
