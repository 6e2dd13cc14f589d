#include "V7Doc/functions/FnEstSampleMatl.h"

#include <cmath>

namespace v7 {
namespace {

constexpr const wchar_t* kNames[] = {
    L"SandDensity150",
    L"SandDensity145",
    L"SandDensity140",
    L"SandDensity135",
    L"SiltDensity135",
    L"SiltDensity130",
    L"SiltDensity125",
    L"SiltDensity120",
    L"ClayDensity135",
    L"ClayDensity130",
    L"ClayDensity125",
    L"ClayDensity120",
    L"LowPlasticDensity135",
    L"LowPlasticDensity130",
    L"LowPlasticDensity125",
    L"LowPlasticDensity120",
    L"HighPlastic",
    L"Granular",
    L"Cohesive",
    L"LooseSand",
    L"MedDenseSand",
    L"DenseSand",
    L"LooseGravel",
    L"MedDenseGravel",
    L"DenseGravel",
    L"SilicaSand",
    L"MedLooseSand",
    L"VeryLooseSand",
    L"Gravel",
};
static_assert(std::size(kNames) == static_cast<std::size_t>(FnEstSample::Gravel) + 1);

// One lb/ft^3 in kg/m^3.
constexpr double kPcf = 16.018463373960138;

}  // namespace

const wchar_t* SampleName(FnEstSample m) {
  const auto i = static_cast<std::size_t>(m);
  return i < std::size(kNames) ? kNames[i] : L"";
}

meta::MetaEnumCommon::Entry SampleEntry(FnEstSample m) {
  return {static_cast<std::int32_t>(m), SampleName(m)};
}

double SampleRelativeDensity(FnEstSample m) {
  switch (m) {
    case FnEstSample::VeryLooseSand:
      return 0.30;
    case FnEstSample::LooseSand:
      return 0.40;
    case FnEstSample::MedLooseSand:
      return 0.45;
    case FnEstSample::SilicaSand:
      return 0.45;
    case FnEstSample::MedDenseSand:
      return 0.60;
    case FnEstSample::DenseSand:
      return 0.90;
    default:
      return 0.0;
  }
}

double SampleDryDensity(FnEstSample m) {
  const auto i = static_cast<int>(m);
  if (i < 4) return (150.0 - 5.0 * i) * kPcf;  // sands, 150 down to 135
  if (i <= static_cast<int>(FnEstSample::LowPlasticDensity120))
    return (135.0 - 5.0 * ((i - 4) % 4)) * kPcf;
  if (m == FnEstSample::HighPlastic) return 1200.0;
  return 0.0;
}

}  // namespace v7
