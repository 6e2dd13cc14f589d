#include "V7Doc/analysis/ResultInfo.h"

#include <algorithm>

namespace v7::v7qvi::analysis {
namespace {
bool ByNumber(const ResultInfo::Step& a, const ResultInfo::Step& b) { return a.first < b.first; }
}  // namespace

void ResultInfo::SetSteps(StepList steps) {
  std::stable_sort(steps.begin(), steps.end(), ByNumber);
  // Of equal numbers keep the last given: walk backwards keeping firsts.
  StepList unique;
  unique.reserve(steps.size());
  for (auto it = steps.rbegin(); it != steps.rend(); ++it)
    if (unique.empty() || unique.back().first != it->first) unique.push_back(*it);
  std::reverse(unique.begin(), unique.end());
  vSteps_ = std::move(unique);
}

void ResultInfo::AddStep(std::int32_t number, const TIMEINC& step) {
  auto it = std::lower_bound(vSteps_.begin(), vSteps_.end(), Step{number, {}}, ByNumber);
  if (it != vSteps_.end() && it->first == number)
    it->second = step;
  else
    vSteps_.insert(it, {number, step});
}

ResultInfo::const_iterator ResultInfo::FindStep(int step) const {
  auto it = std::lower_bound(vSteps_.begin(), vSteps_.end(), Step{step, {}}, ByNumber);
  return it != vSteps_.end() && it->first == step ? it : vSteps_.end();
}

ResultInfo::const_iterator ResultInfo::FindSavedStep(int step) const {
  auto it = FindStep(step);
  return it != vSteps_.end() && it->second.nSave != 0 ? it : vSteps_.end();
}

}  // namespace v7::v7qvi::analysis
