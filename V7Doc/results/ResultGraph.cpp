#include "V7Doc/results/ResultGraph.h"

#include "OC/Schema.h"

namespace v7 {

void ResultGraph::Clear(bool bKeepName) {
  std::wstring name = bKeepName ? std::move(name_) : std::wstring();
  *this = ResultGraph{};
  name_ = std::move(name);
}

std::vector<GGID> ResultGraph::Sources() const {
  std::vector<GGID> out;
  out.reserve(vSources_.size());
  for (const auto& s : vSources_) out.emplace_back(s.container_, s.record_);
  return out;
}

void ResultGraph::SetSources(const std::vector<GGID>& sources) {
  vSources_.clear();
  vSources_.reserve(sources.size());
  for (const GGID& g : sources) vSources_.push_back({g.container, g.record});
}

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ResultTimeSelection>() {
  static const MetaEnumCommon t(L"ResultTimeSelection",
                                {{0, L"AllTimes"}, {1, L"SelectedTimes"}, {2, L"CurrentTime"}});
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<v7::ResultGraphSource>() {
  using v7::ResultGraphSource;
  static const RecordType& t = Schema<ResultGraphSource>(L"ResultGraphSource")
                                   .Add(&ResultGraphSource::container_, L"container_", L"Container")
                                   .Add(&ResultGraphSource::record_, L"record_", L"Record", meta::MetaDataTraits{}.RefVia(L"container_").Flag(meta::MetaDataTraits::DropWhenGone))
                                   .Done();
  return t;
}

template <>
const oc::RecordType& oc::TypeOf<v7::ResultGraph>() {
  using v7::ResultGraph;
  static const RecordType& t =
      Schema<ResultGraph>(L"ResultGraph")
          .Add(&ResultGraph::name_, L"name_", L"Name")
          .Add(&ResultGraph::eIndepParam_, L"eIndepParam_", L"IndepParam")
          .Add(&ResultGraph::nIndepUnit_, L"nIndepUnit_", L"IndepUnit")
          .Add(&ResultGraph::eDepParam_, L"eDepParam_", L"DepParam")
          .Add(&ResultGraph::nDepUnit_, L"nDepUnit_", L"DepUnit")
          .Add(&ResultGraph::eTimeSelection_, L"eTimeSelection_", L"TimeSelection")
          .Add(&ResultGraph::vElapsedTimes_, L"vElapsedTimes_", L"ElapsedTimes[Time]")
          .Add(&ResultGraph::vSources_, L"vSources_", L"Sources[ID]")
          .Add(&ResultGraph::bPlotSumVsAverage_, L"bPlotSumVsAverage_", L"PlotSumVsAverage")
          .Add(&ResultGraph::fDampingRatio_, L"fDampingRatio_", L"DampingRatio",
               meta::MetaDataTraits{}.Bounds(0, 1))
          .Add(&ResultGraph::nFrequencyStep_, L"nFrequencyStep_", L"FrequencyStep")
          .Done();
  return t;
}
