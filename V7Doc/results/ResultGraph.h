#pragma once
// A result graph: one quantity plotted against another over a set of sources
// (nodes, points, cut lines of the document) and a selection of times.
// Collection "Contour.ResultGraphs[ResultGraph]" (container 53).
#include <cstdint>
#include <string>
#include <vector>

#include "QVI/meta/MetaEnumCommon.h"
#include "QVI/qvi/Markers.h"
#include "V7Doc/core/GID.h"
#include "V7Doc/core/QVContainerTable.h"
#include "V7Doc/results/DataParamType.h"

namespace oc {
class RecordType;
template <class T>
const RecordType& TypeOf();
}  // namespace oc

namespace v7 {

// Which saved times a graph draws.
enum class ResultTimeSelection : std::int32_t {
  AllTimes = 0,       // "AllTimes": every saved step, one curve per source
  SelectedTimes = 1,  // "SelectedTimes": the steps at the graph's elapsed times
  CurrentTime = 2,    // "CurrentTime": the step the view shows
  Undefined = qvi::kNone,
};

// One source of a graph as persisted: a record of any container.
struct ResultGraphSource {
  GID container_ = 0;  // "Container"
  GID record_ = 0;     // "Record"
  friend bool operator==(const ResultGraphSource&, const ResultGraphSource&) = default;
};

class ResultGraph {
 public:
  ResultGraph() = default;

  // Resets every member to its default; the name survives when `bKeepName`,
  // so that "clear the graph" in a view does not lose its title.
  void Clear(bool bKeepName);

  const std::wstring& Name() const { return name_; }
  void SetName(const std::wstring& name) { name_ = name; }

  // The quantity along the horizontal axis and the unit it is shown in (an
  // index into the unit list of that quantity; 0 is the document's unit).
  DataParamType IndepParam() const { return eIndepParam_; }
  void SetIndepParam(DataParamType p) { eIndepParam_ = p; }
  std::uint32_t IndepUnit() const { return nIndepUnit_; }
  void SetIndepUnit(std::uint32_t u) { nIndepUnit_ = u; }
  // The quantity along the vertical axis and its unit.
  DataParamType DepParam() const { return eDepParam_; }
  void SetDepParam(DataParamType p) { eDepParam_ = p; }
  std::uint32_t DepUnit() const { return nDepUnit_; }
  void SetDepUnit(std::uint32_t u) { nDepUnit_ = u; }

  ResultTimeSelection TimeSelection() const { return eTimeSelection_; }
  void SetTimeSelection(ResultTimeSelection t) { eTimeSelection_ = t; }
  // The elapsed times drawn under SelectedTimes, ascending as given.
  const std::vector<double>& ElapsedTimes() const { return vElapsedTimes_; }
  void SetElapsedTimes(const std::vector<double>& times) { vElapsedTimes_ = times; }
  // The records whose results are drawn, one curve (or one point) each.
  std::vector<GGID> Sources() const;
  void SetSources(const std::vector<GGID>& sources);

  // True: values of all sources are summed (fluxes through sections); false:
  // they are averaged.
  bool PlotSumVsAverage() const { return bPlotSumVsAverage_; }
  void SetPlotSumVsAverage(bool b) { bPlotSumVsAverage_ = b; }
  // Damping ratio of response spectra (a fraction of critical damping).
  double DampingRatio() const { return fDampingRatio_; }
  void SetDampingRatio(double d) { fDampingRatio_ = d; }
  // Frequency step of spectra and Fourier amplitude graphs, in samples.
  std::uint32_t FrequencyStep() const { return nFrequencyStep_; }
  void SetFrequencyStep(std::uint32_t n) { nFrequencyStep_ = n; }

  // True for a deleted slot of the table.
  bool IsDeleted() const { return bDeleted_; }
  void SetDeleted() {
    Clear(false);
    bDeleted_ = true;
  }

  friend bool operator==(const ResultGraph&, const ResultGraph&) = default;

 private:
  friend const oc::RecordType& oc::TypeOf<ResultGraph>();

  std::wstring name_;
  DataParamType eIndepParam_ = DataParamType::Time;
  std::uint32_t nIndepUnit_ = 0;
  DataParamType eDepParam_ = DataParamType::Undefined;
  std::uint32_t nDepUnit_ = 0;
  ResultTimeSelection eTimeSelection_ = ResultTimeSelection::AllTimes;
  std::vector<double> vElapsedTimes_;
  std::vector<ResultGraphSource> vSources_;
  bool bPlotSumVsAverage_ = false;
  // 5 % of critical, the damping at which design response spectra are
  // conventionally given (e.g. Eurocode 8, CEN 2004).
  double fDampingRatio_ = 0.05;
  std::uint32_t nFrequencyStep_ = 1;
  bool bDeleted_ = false;  // not persisted
};

inline bool IsMissing(const ResultGraph& g) { return g.IsDeleted(); }
inline void SetMissing(ResultGraph& g) { g.SetDeleted(); }

}  // namespace v7

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::ResultTimeSelection>();
template <>
const oc::RecordType& oc::TypeOf<v7::ResultGraphSource>();
template <>
const oc::RecordType& oc::TypeOf<v7::ResultGraph>();
