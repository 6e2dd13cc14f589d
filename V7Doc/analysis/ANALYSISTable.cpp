#include "V7Doc/analysis/ANALYSISTable.h"

#include <algorithm>

#include "V7Doc/analysis/AnalysisMessages.h"

namespace v7 {

gtl::status ANALYSISTable::SetParent(GID child, GID parent) {
  if (!IsValidID(child)) return gtl::status::error(analysis_msg::kNoAnalysis, child);
  if (parent != 0) {
    if (!IsValidID(parent)) return gtl::status::error(analysis_msg::kNoAnalysis, parent);
    const auto chain = Ancestors(parent);
    if (parent == child || std::find(chain.begin(), chain.end(), child) != chain.end())
      return gtl::status::error(analysis_msg::kParentCycle, parent, child);
  }
  At(child).parent = parent;
  return {};
}

std::vector<GID> ANALYSISTable::Children(GID parent) const {
  std::vector<GID> out;
  if (parent == 0) return out;
  for (auto it = begin(); it != end(); ++it)
    if (it->parent == parent) out.push_back(it.ID());
  return out;
}

std::vector<GID> ANALYSISTable::Ancestors(GID id) const {
  std::vector<GID> out;
  GID at = id;
  while (IsValidID(at)) {
    const GID p = At(at).parent;
    if (p == 0 || p == id || std::find(out.begin(), out.end(), p) != out.end() || !IsValidID(p))
      break;
    out.push_back(p);
    at = p;
  }
  return out;
}

}  // namespace v7
