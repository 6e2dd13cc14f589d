#include "V7Doc/functions/FnAttr.h"

#include <cmath>
#include <limits>

#include "QVI/qvi/Markers.h"
#include "QVI/str/Convert.h"

namespace v7 {
namespace {

FnAttr Make(const wchar_t* name, double v) {
  return FnAttr(name, qvi::IsNoValue(v) ? std::wstring() : str::to_wstring(v));
}
FnAttr Make(const wchar_t* name, std::uint32_t v) { return FnAttr(name, str::to_wstring(v)); }
FnAttr Make(const wchar_t* name, std::int32_t v) { return FnAttr(name, str::to_wstring(v)); }
FnAttr Make(const wchar_t* name, bool v) { return FnAttr(name, v ? L"1" : L"0"); }
FnAttr Make(const wchar_t* name, const std::wstring& v) { return FnAttr(name, v); }
FnAttr Make(const wchar_t* name, DataParamType v) {
  return FnAttr(name, str::to_wstring(static_cast<std::int32_t>(v)));
}
FnAttr Make(const wchar_t* name, const math::fn::TailType& v) { return FnAttr(name, v.as_wstring()); }

std::wstring_view Trim(const std::wstring& text) { return str::trim(text); }

}  // namespace

std::wstring FnAttr::as_wstring() const {
  if (Name.empty() || Value.empty()) return Value;
  return Name + L"=" + Value;
}

std::wstring JoinAttributes(const std::vector<FnAttr>& attrs, bool nonEmptyOnly) {
  std::wstring out;
  bool first = true;
  for (const FnAttr& a : attrs) {
    if (nonEmptyOnly && a.Value.empty()) continue;
    if (!first) out += L",";
    out += a.as_wstring();
    first = false;
  }
  return out;
}

FnAttr FnAttrCalc(const FnAttr& a) {
  return FnAttr(a.Name.empty() ? std::wstring(L"Calculated") : L"Calculated." + a.Name, a.Value);
}

FnAttr FnAttrSub(const FnAttr& outer, const FnAttr& inner) {
  return FnAttr(outer.Name + L"." + inner.Name, inner.Value);
}

bool ReadAttr(const std::wstring& text, double& v) {
  const std::wstring_view t = Trim(text);
  if (t.empty()) {
    v = qvi::kNoValue;
    return true;
  }
  double d = 0;
  if (!str::parse(t, d) || std::isnan(d)) return false;
  v = d;
  return true;
}

bool ReadAttr(const std::wstring& text, std::uint32_t& v) {
  std::int64_t n = 0;
  if (!str::parse(Trim(text), n) || n < 0 || n > std::numeric_limits<std::uint32_t>::max())
    return false;
  v = static_cast<std::uint32_t>(n);
  return true;
}

bool ReadAttr(const std::wstring& text, std::int32_t& v) {
  std::int64_t n = 0;
  if (!str::parse(Trim(text), n) || n < std::numeric_limits<std::int32_t>::min() ||
      n > std::numeric_limits<std::int32_t>::max())
    return false;
  v = static_cast<std::int32_t>(n);
  return true;
}

bool ReadAttr(const std::wstring& text, bool& v) {
  const std::wstring_view t = Trim(text);
  if (t == L"1" || str::iequals(t, L"true")) {
    v = true;
    return true;
  }
  if (t == L"0" || str::iequals(t, L"false") || t.empty()) {
    v = false;
    return true;
  }
  return false;
}

bool ReadAttr(const std::wstring& text, DataParamType& v) {
  const std::wstring_view t = Trim(text);
  std::int32_t n = 0;
  if (ReadAttr(std::wstring(t), n)) {
    if (!meta::EnumTable<DataParamType>().Contains(n) || n == qvi::kNone) return false;
    v = static_cast<DataParamType>(n);
    return true;
  }
  if (auto byName = meta::EnumTable<DataParamType>().ValueOf(t); byName && *byName != qvi::kNone) {
    v = static_cast<DataParamType>(*byName);
    return true;
  }
  return false;
}

bool ReadAttr(const std::wstring& text, math::fn::TailType& v) {
  return v.parse(std::wstring(Trim(text)));
}

gtl::status InvalidAttributeValue(const std::wstring& kind, const FnAttr& attr) {
  return gtl::status::error(33001, kind, attr.Name, attr.Value);
}

FnAttr FnAttrA(double value) { return Make(L"A", value); }
FnAttr FnAttrAirBoundFnNum(std::uint32_t value) { return Make(L"AirBoundFnNum", value); }
FnAttr FnAttrAirKDry(double value) { return Make(L"AirKDry", value); }
FnAttr FnAttrAssembly(const std::wstring& value) { return Make(L"Assembly", value); }
FnAttr FnAttrBType(const std::wstring& value) { return Make(L"BType", value); }
FnAttr FnAttrClimateDataSet(std::uint32_t value) { return Make(L"ClimateDataSet", value); }
FnAttr FnAttrConfiningStress(double value) { return Make(L"ConfiningStress", value); }
FnAttr FnAttrContamBoundFnNum(std::uint32_t value) { return Make(L"ContamBoundFnNum", value); }
FnAttr FnAttrConvSurfDataSet(std::uint32_t value) { return Make(L"ConvSurfDataSet", value); }
FnAttr FnAttrD10(double value) { return Make(L"D10", value); }
FnAttr FnAttrD60(double value) { return Make(L"D60", value); }
FnAttr FnAttrDelta(double value) { return Make(L"Delta", value); }
FnAttr FnAttrDepth(double value) { return Make(L"Depth", value); }
FnAttr FnAttrDescription(const std::wstring& value) { return Make(L"Description", value); }
FnAttr FnAttrDisturbanceFactor(double value) { return Make(L"DisturbanceFactor", value); }
FnAttr FnAttrElevFnNum(std::uint32_t value) { return Make(L"ElevFnNum", value); }
FnAttr FnAttrElevVariable(bool value) { return Make(L"ElevVariable", value); }
FnAttr FnAttrElevation(double value) { return Make(L"Elevation", value); }
FnAttr FnAttrFirstDaySeason(std::uint32_t value) { return Make(L"FirstDaySeason", value); }
FnAttr FnAttrFunction(const std::wstring& value) { return Make(L"Function", value); }
FnAttr FnAttrGamma(double value) { return Make(L"Gamma", value); }
FnAttr FnAttrGasBoundFnNum(std::uint32_t value) { return Make(L"GasBoundFnNum", value); }
FnAttr FnAttrGasModFnNum(std::uint32_t value) { return Make(L"GasModFnNum", value); }
FnAttr FnAttrGeologicalStrength(double value) { return Make(L"GeologicalStrength", value); }
FnAttr FnAttrGmaxEstMethod(std::int32_t value) { return Make(L"GmaxEstMethod", value); }
FnAttr FnAttrHydBoundFnNum(std::uint32_t value) { return Make(L"HydBoundFnNum", value); }
FnAttr FnAttrHydKEstMethod(std::int32_t value) { return Make(L"HydKEstMethod", value); }
FnAttr FnAttrHydKSat(double value) { return Make(L"HydKSat", value); }
FnAttr FnAttrHydModFnNum(std::uint32_t value) { return Make(L"HydModFnNum", value); }
FnAttr FnAttrInputParam(v7::DataParamType value) { return Make(L"InputParam", value); }
FnAttr FnAttrIntactRockParam(double value) { return Make(L"IntactRockParam", value); }
FnAttr FnAttrK0(double value) { return Make(L"K0", value); }
FnAttr FnAttrKModifier(double value) { return Make(L"KModifier", value); }
FnAttr FnAttrLAIFnNum(std::uint32_t value) { return Make(L"LAIFnNum", value); }
FnAttr FnAttrLAIScale(double value) { return Make(L"LAIScale", value); }
FnAttr FnAttrLabShearStrain(double value) { return Make(L"LabShearStrain", value); }
FnAttr FnAttrLastDaySeason(std::uint32_t value) { return Make(L"LastDaySeason", value); }
FnAttr FnAttrLiqLimit(double value) { return Make(L"LiqLimit", value); }
FnAttr FnAttrLoc(double value) { return Make(L"Loc", value); }
FnAttr FnAttrLogInput(bool value) { return Make(L"LogInput", value); }
FnAttr FnAttrLogOutput(bool value) { return Make(L"LogOutput", value); }
FnAttr FnAttrM(double value) { return Make(L"M", value); }
FnAttr FnAttrMassSpecHeat(double value) { return Make(L"MassSpecHeat", value); }
FnAttr FnAttrMax(double value) { return Make(L"Max", value); }
FnAttr FnAttrMean(double value) { return Make(L"Mean", value); }
FnAttr FnAttrMedian(double value) { return Make(L"Median", value); }
FnAttr FnAttrMin(double value) { return Make(L"Min", value); }
FnAttr FnAttrMineralThermalK(double value) { return Make(L"MineralThermalK", value); }
FnAttr FnAttrMode(double value) { return Make(L"Mode", value); }
FnAttr FnAttrMv(double value) { return Make(L"Mv", value); }
FnAttr FnAttrN(double value) { return Make(L"N", value); }
FnAttr FnAttrNExponent(double value) { return Make(L"NExponent", value); }
FnAttr FnAttrNorm(double value) { return Make(L"Norm", value); }
FnAttr FnAttrNormFnNum(std::uint32_t value) { return Make(L"NormFnNum", value); }
FnAttr FnAttrNormVariable(bool value) { return Make(L"NormVariable", value); }
FnAttr FnAttrNumPoints(std::uint32_t value) { return Make(L"NumPoints", value); }
FnAttr FnAttrNumYears(std::uint32_t value) { return Make(L"NumYears", value); }
FnAttr FnAttrOCR(double value) { return Make(L"OCR", value); }
FnAttr FnAttrOutputParam(v7::DataParamType value) { return Make(L"OutputParam", value); }
FnAttr FnAttrPI(double value) { return Make(L"PI", value); }
FnAttr FnAttrPMLFnNum(std::uint32_t value) { return Make(L"PMLFnNum", value); }
FnAttr FnAttrProbFnNum(std::uint32_t value) { return Make(L"ProbFnNum", value); }
FnAttr FnAttrRDFnNum(std::uint32_t value) { return Make(L"RDFnNum", value); }
FnAttr FnAttrRDType(std::int32_t value) { return Make(L"RDType", value); }
FnAttr FnAttrResWC(double value) { return Make(L"ResWC", value); }
FnAttr FnAttrReview(bool value) { return Make(L"Review", value); }
FnAttr FnAttrReviewType(const std::wstring& value) { return Make(L"ReviewType", value); }
FnAttr FnAttrSD(double value) { return Make(L"SD", value); }
FnAttr FnAttrSampleBySplice(bool value) { return Make(L"SampleBySlice", value); }
FnAttr FnAttrSampleMatlCyclicNumber(std::int32_t value) { return Make(L"SampleMatlCyclicNumber", value); }
FnAttr FnAttrSampleMatlEMod(std::int32_t value) { return Make(L"SampleMatlEMod", value); }
FnAttr FnAttrSampleMatlGmax(std::int32_t value) { return Make(L"SampleMatlGmax", value); }
FnAttr FnAttrSampleMatlKalpha(std::int32_t value) { return Make(L"SampleMatlKalpha", value); }
FnAttr FnAttrSampleMatlKsigma(std::int32_t value) { return Make(L"SampleMatlKsigma", value); }
FnAttr FnAttrSampleMatlLAI(std::int32_t value) { return Make(L"SampleMatlLAI", value); }
FnAttr FnAttrSampleMatlMFSPWP(std::int32_t value) { return Make(L"SampleMatlMFSPWP", value); }
FnAttr FnAttrSampleMatlRecModulus(std::int32_t value) { return Make(L"SampleMatlRecModulus", value); }
FnAttr FnAttrSampleMatlThermalKvsTemp(std::int32_t value) { return Make(L"SampleMatlThermalKvsTemp", value); }
FnAttr FnAttrSampleMatlUnfrozenWC(std::int32_t value) { return Make(L"SampleMatlUnfrozenWC", value); }
FnAttr FnAttrSampleMatlVolWC(std::int32_t value) { return Make(L"SampleMatlVolWC", value); }
FnAttr FnAttrSamplingDistance(double value) { return Make(L"SamplingDistance", value); }
FnAttr FnAttrSatWC(double value) { return Make(L"SatWC", value); }
FnAttr FnAttrScale(double value) { return Make(L"Scale", value); }
FnAttr FnAttrShape(double value) { return Make(L"Shape", value); }
FnAttr FnAttrSigma3(double value) { return Make(L"Sigma3", value); }
FnAttr FnAttrSigmaC(double value) { return Make(L"SigmaC", value); }
FnAttr FnAttrSmooth(std::uint32_t value) { return Make(L"Smooth", value); }
FnAttr FnAttrSteps(std::uint32_t value) { return Make(L"Steps", value); }
FnAttr FnAttrStressBoundFnNum(std::uint32_t value) { return Make(L"StressBoundFnNum", value); }
FnAttr FnAttrSuctionLimit(double value) { return Make(L"SuctionLimit", value); }
FnAttr FnAttrTCFrozen(double value) { return Make(L"TCFrozen", value); }
FnAttr FnAttrTCUnfrozen(double value) { return Make(L"TCUnfrozen", value); }
FnAttr FnAttrTailAfter(const math::fn::TailType& value) { return Make(L"SlopeAfter", value); }
FnAttr FnAttrTailBefore(const math::fn::TailType& value) { return Make(L"SlopeBefore", value); }
FnAttr FnAttrTan(double value) { return Make(L"Tan", value); }
FnAttr FnAttrTanFnNum(std::uint32_t value) { return Make(L"TanFnNum", value); }
FnAttr FnAttrTanVariable(bool value) { return Make(L"TanVariable", value); }
FnAttr FnAttrTension(std::uint32_t value) { return Make(L"Tension", value); }
FnAttr FnAttrThermBoundFnNum(std::uint32_t value) { return Make(L"ThermBoundFnNum", value); }
FnAttr FnAttrThermModFnNum(std::uint32_t value) { return Make(L"ThermModFnNum", value); }
FnAttr FnAttrThermoDataSet(std::uint32_t value) { return Make(L"ThermoDataSet", value); }
FnAttr FnAttrType(const std::wstring& value) { return Make(L"Type", value); }
FnAttr FnAttrValue(double value) { return Make(L"Value", value); }
FnAttr FnAttrVoidRatio(double value) { return Make(L"VoidRatio", value); }
FnAttr FnAttrVolWCEstMethod(std::int32_t value) { return Make(L"VolWCEstMethod", value); }
FnAttr FnAttrVolWCFnNum(std::uint32_t value) { return Make(L"VolWCFnNum", value); }
FnAttr FnAttrZ(double value) { return Make(L"Z", value); }
}  // namespace v7
