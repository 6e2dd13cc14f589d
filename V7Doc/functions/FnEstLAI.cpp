#include "V7Doc/functions/FnEstLAI.h"

#include <algorithm>
#include <cmath>

#include "QVI/str/Messages.h"
#include "V7Doc/functions/FnRegistry.h"

template <>
const meta::MetaEnumCommon& meta::EnumTable<v7::FnEstLAIType::eGrassQuality>() {
  static const MetaEnumCommon t(L"FnEstLAIType::eGrassQuality",
                                {{0, L"Poor"}, {1, L"Good"}, {2, L"Excellent"}});
  return t;
}

namespace v7 {
namespace {

const FnKindRegistrar kLAI(FnEstLAI::TypeName(), &CreateFn<FnEstLAI>);

constexpr double kYear = 365.0;

const std::vector<FnEstField>& Fields() {
  static const std::vector<FnEstField> f = {
      EstEnum(FnAttrSampleMatlLAI, &meta::EnumTable<FnEstLAIType::eGrassQuality>,
              FnEstLAIType::Good),
      EstCount(FnAttrNumPoints, 20, 2, 366), EstCount(FnAttrFirstDaySeason, 121, 1, 365),
      EstCount(FnAttrLastDaySeason, 273, 1, 365), EstCount(FnAttrNumYears, 1, 1, 100)};
  return f;
}

}  // namespace

FnEstLAI::FnEstLAI() : FnEstCurve(Fields(), L"Day", L"Leaf area index") {}

double FnEstLAI::PeakLAI() const {
  switch (IntParam(L"SampleMatlLAI")) {
    case FnEstLAIType::Poor:
      return 24.0 * 0.05;
    case FnEstLAIType::Excellent:
      return 24.0 * 0.15;
    default:
      return 24.0 * 0.12;
  }
}

gtl::status FnEstLAI::Check() const {
  if (!(Param(L"LastDaySeason") > Param(L"FirstDaySeason")))
    return ParamError(L"LastDaySeason", str::load_wstring(33533));
  return {};
}

std::vector<double> FnEstLAI::Abscissae() const {
  const double first = Param(L"FirstDaySeason"), last = Param(L"LastDaySeason"),
               q = 0.25 * (last - first);
  std::vector<double> season =
      LinSpaced(first, last, static_cast<std::uint32_t>(Param(L"NumPoints")));
  season.insert(season.end(), {1.0, first + q, last - q, kYear});
  std::sort(season.begin(), season.end());
  season.erase(std::unique(season.begin(), season.end()), season.end());
  std::vector<double> days;
  for (int y = 0; y < IntParam(L"NumYears"); ++y)
    for (double d : season) days.push_back(d + kYear * y);
  return days;
}

double FnEstLAI::Estimate(double day) const {
  const double d = std::fmod(day - 1.0, kYear) + 1.0;
  const double first = Param(L"FirstDaySeason"), last = Param(L"LastDaySeason"),
               q = 0.25 * (last - first);
  const double share = d <= first || d >= last ? 0.0
                       : d < first + q         ? (d - first) / q
                       : d > last - q          ? (last - d) / q
                                               : 1.0;
  return PeakLAI() * share;
}

}  // namespace v7
