#include "V7Doc/results/ResultTables.h"

#include <algorithm>

#include "V7Doc/core/QVContainerManager.h"
#include "V7Doc/document/QVDocument.h"

namespace v7 {
namespace {

void AddUse(UsageList& usage, GID used, GGID user) {
  if (used == 0) return;
  if (used >= usage.size()) usage.resize(static_cast<std::size_t>(used) + 1);
  usage[used].push_back(user);
}

GID Renumbered(const std::vector<GID>& renumber, GID id) {
  return id < renumber.size() ? renumber[id] : GID{0};
}

}  // namespace

void ResultSetTable::OnRegistration() {
  Manager().Subscribe(this, container::Analyses);
  Manager().Subscribe(this, container::ResultContours);
}

void ResultSetTable::OnGetUsageOf(GID c, UsageList& usage) {
  QVContainerTable<ResultSet>::OnGetUsageOf(c, usage);
  if (ID() == 0) return;
  for (auto it = begin(); it != end(); ++it) {
    if (c == container::Analyses) AddUse(usage, it->analysis_, GGID(ID(), it.ID()));
    else if (c == container::ResultContours) AddUse(usage, it->contour_, GGID(ID(), it.ID()));
  }
}

void ResultSetTable::OnIDUpdate(GID c, const std::vector<GID>& renumber) {
  for (auto it = begin(); it != end(); ++it) {
    if (c == container::Analyses) it->analysis_ = Renumbered(renumber, it->analysis_);
    else if (c == container::ResultContours) it->contour_ = Renumbered(renumber, it->contour_);
  }
}

void ResultSetTable::OnDelete(GID c, const std::vector<GID>& ids) {
  auto gone = [&ids](GID id) { return std::binary_search(ids.begin(), ids.end(), id); };
  for (auto it = begin(); it != end(); ++it) {
    if (c == container::Analyses && gone(it->analysis_)) it->analysis_ = 0;
    else if (c == container::ResultContours && gone(it->contour_)) it->contour_ = 0;
  }
}

void ResultGraphTable::OnGetUsageOf(GID c, UsageList& usage) {
  QVContainerTable<ResultGraph>::OnGetUsageOf(c, usage);
  if (ID() == 0) return;
  for (auto it = begin(); it != end(); ++it)
    for (const GGID& s : it->Sources())
      if (s.container == c) AddUse(usage, s.record, GGID(ID(), it.ID()));
}

}  // namespace v7
