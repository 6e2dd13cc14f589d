#pragma once
// The "Analyses" collection (container 8).
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
  ANALYSISTable() = default;
};

}  // namespace v7
