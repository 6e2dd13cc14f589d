#pragma once
// The sample materials of the property estimators, numbered once for all of
// them: every estimator's sample-material enumeration is a subset of this
// list with the same values, so that a number means the same material in
// every estimator. The values are the positions in the list.
//
// What each member stands for (the properties that the estimators read):
//  - sands and gravels by relative density Dr: "VeryLooseSand" 30 %,
//    "LooseSand" 40 %, "MedLooseSand" 45 %, "MedDenseSand" 60 %,
//    "DenseSand" 90 % (the densities of the K2max table of Seed and Idriss,
//    1970), "SilicaSand" 45 % (the silica sand of the tests of Martin, Finn
//    and Seed, 1975); "LooseGravel", "MedDenseGravel", "DenseGravel";
//  - "<Soil>Density<n>": a soil of dry density n lb/ft^3, the unit of
//    Kersten's (1949) thermal-conductivity equations;
//  - "Granular", "Cohesive", "Gravel", "HighPlastic": soil classes.
#include <cstdint>

#include "QVI/meta/MetaEnumCommon.h"

namespace v7 {

enum class FnEstSample : std::int32_t {
  SandDensity150,
  SandDensity145,
  SandDensity140,
  SandDensity135,
  SiltDensity135,
  SiltDensity130,
  SiltDensity125,
  SiltDensity120,
  ClayDensity135,
  ClayDensity130,
  ClayDensity125,
  ClayDensity120,
  LowPlasticDensity135,
  LowPlasticDensity130,
  LowPlasticDensity125,
  LowPlasticDensity120,
  HighPlastic,
  Granular,
  Cohesive,
  LooseSand,
  MedDenseSand,
  DenseSand,
  LooseGravel,
  MedDenseGravel,
  DenseGravel,
  SilicaSand,
  MedLooseSand,
  VeryLooseSand,
  Gravel,
};

// The stored name of a sample material ("SandDensity150").
const wchar_t* SampleName(FnEstSample m);
// The enumeration-table entry of a sample material (its value and name).
meta::MetaEnumCommon::Entry SampleEntry(FnEstSample m);

// Relative density (fraction) of the sand members; 0 for the others.
double SampleRelativeDensity(FnEstSample m);
// Dry density in kg/m^3 of the "<Soil>Density<n>" members (n lb/ft^3) and of
// "HighPlastic" (taken as 1200 kg/m^3, a soft fat clay); 0 for the others.
double SampleDryDensity(FnEstSample m);

}  // namespace v7
