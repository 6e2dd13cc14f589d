#include "V7Doc/analysis/TimeStepEnums.h"

using meta::MetaEnumCommon;

template <>
const MetaEnumCommon& meta::EnumTable<v7::TimeStepMode>() {
  static const MetaEnumCommon t(L"TimeStepMode", {{0, L"None"},
                                                  {1, L"Duration"},
                                                  {2, L"IncrementSize"},
                                                  {3, L"UntilDuration"},
                                                  {4, L"External"},
                                                  {5, L"Dynamic"},
                                                  {6, L"Adaptive"},
                                                  {7, L"Direct"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::IncrementType>() {
  static const MetaEnumCommon t(L"IncrementType", {{0, L"Linear"}, {1, L"Exponential"}});
  return t;
}

template <>
const MetaEnumCommon& meta::EnumTable<v7::ResultStepType>() {
  static const MetaEnumCommon t(L"ResultStepType", {{0, L"AllSteps"}, {1, L"SavedSteps"}});
  return t;
}
