#pragma once
// A named attribute of a function and the vocabulary of attribute factories.
//
// Every value is held as text. How the factories write values (and how kinds
// read them back with ReadAttr):
//  - doubles in the shortest form that reads back exactly; the no-value
//    marker (an unset parameter) as empty text, so that texts stay readable;
//  - unsigned integers in decimal;
//  - booleans as "1" and "0" ("true" and "false" are read too);
//  - enumerations as their value in decimal (their name is read too);
//  - tails as TailType's text: empty for none, else the slope.
#include <cstdint>
#include <string>
#include <vector>

#include "QVI/gtl/status.h"
#include "QVI/math/fn/TailType.h"
#include "V7Doc/results/DataParamType.h"

namespace v7 {

struct FnAttr {
  std::wstring Name;   // attribute name, e.g. "Smooth"
  std::wstring Value;  // value as text

  FnAttr() = default;
  // An attribute with a name and an empty value.
  explicit FnAttr(std::wstring name) : Name(std::move(name)) {}
  FnAttr(std::wstring name, std::wstring value) : Name(std::move(name)), Value(std::move(value)) {}

  // Sets the value text; returns *this for chaining.
  FnAttr& Value_(const std::wstring& v) {
    Value = v;
    return *this;
  }
  // The text form: "Name=Value", or the value alone when either is empty.
  std::wstring as_wstring() const;

  friend bool operator==(const FnAttr&, const FnAttr&) = default;
};

// Joins attributes' text forms with ","; with `nonEmptyOnly` attributes whose
// value is empty are left out.
std::wstring JoinAttributes(const std::vector<FnAttr>& attrs, bool nonEmptyOnly = false);

// Composite names. "Calculated" (+ "." + a's name) with a's value: a value
// derived by the function rather than entered.
FnAttr FnAttrCalc(const FnAttr& a);
// outer's name + "." + inner's name, with inner's value: an attribute of a
// function that is itself held in the attribute `outer`.
FnAttr FnAttrSub(const FnAttr& outer, const FnAttr& inner);

// Value readers used by the kinds. Each trims blanks (characters 9 to 13 and
// 32) and returns false, leaving `v` alone, on a text it cannot read. Empty
// text reads as unset: the no-value marker for doubles.
bool ReadAttr(const std::wstring& text, double& v);
bool ReadAttr(const std::wstring& text, std::uint32_t& v);
bool ReadAttr(const std::wstring& text, std::int32_t& v);
bool ReadAttr(const std::wstring& text, bool& v);
bool ReadAttr(const std::wstring& text, DataParamType& v);
bool ReadAttr(const std::wstring& text, math::fn::TailType& v);

// The error for an attribute value a kind cannot read (message 33001).
gtl::status InvalidAttributeValue(const std::wstring& kind, const FnAttr& attr);

// The vocabulary. Enumerations of estimator kinds are passed as their value
// (their nested enumerations convert to it).
FnAttr FnAttrA(double value);
FnAttr FnAttrAirBoundFnNum(std::uint32_t value);
FnAttr FnAttrAirKDry(double value);
FnAttr FnAttrAssembly(const std::wstring& value);
FnAttr FnAttrBType(const std::wstring& value);
FnAttr FnAttrClimateDataSet(std::uint32_t value);
FnAttr FnAttrConfiningStress(double value);
FnAttr FnAttrContamBoundFnNum(std::uint32_t value);
FnAttr FnAttrConvSurfDataSet(std::uint32_t value);
FnAttr FnAttrD10(double value);
FnAttr FnAttrD60(double value);
FnAttr FnAttrDelta(double value);
FnAttr FnAttrDepth(double value);
FnAttr FnAttrDescription(const std::wstring& value);
FnAttr FnAttrDisturbanceFactor(double value);
FnAttr FnAttrElevFnNum(std::uint32_t value);
FnAttr FnAttrElevVariable(bool value);
FnAttr FnAttrElevation(double value);
FnAttr FnAttrFirstDaySeason(std::uint32_t value);
FnAttr FnAttrFunction(const std::wstring& value);
FnAttr FnAttrGamma(double value);
FnAttr FnAttrGasBoundFnNum(std::uint32_t value);
FnAttr FnAttrGasModFnNum(std::uint32_t value);
FnAttr FnAttrGeologicalStrength(double value);
FnAttr FnAttrGmaxEstMethod(std::int32_t value);  // FnEstGmaxType::eEstMethod
FnAttr FnAttrHydBoundFnNum(std::uint32_t value);
FnAttr FnAttrHydKEstMethod(std::int32_t value);  // FnEstHydKType::eEstMethod
FnAttr FnAttrHydKSat(double value);
FnAttr FnAttrHydModFnNum(std::uint32_t value);
FnAttr FnAttrInputParam(v7::DataParamType value);
FnAttr FnAttrIntactRockParam(double value);
FnAttr FnAttrK0(double value);
FnAttr FnAttrKModifier(double value);
FnAttr FnAttrLAIFnNum(std::uint32_t value);
FnAttr FnAttrLAIScale(double value);
FnAttr FnAttrLabShearStrain(double value);
FnAttr FnAttrLastDaySeason(std::uint32_t value);
FnAttr FnAttrLiqLimit(double value);
FnAttr FnAttrLoc(double value);
FnAttr FnAttrLogInput(bool value);
FnAttr FnAttrLogOutput(bool value);
FnAttr FnAttrM(double value);
FnAttr FnAttrMassSpecHeat(double value);
FnAttr FnAttrMax(double value);
FnAttr FnAttrMean(double value);
FnAttr FnAttrMedian(double value);
FnAttr FnAttrMin(double value);
FnAttr FnAttrMineralThermalK(double value);
FnAttr FnAttrMode(double value);
FnAttr FnAttrMv(double value);
FnAttr FnAttrN(double value);
FnAttr FnAttrNExponent(double value);
FnAttr FnAttrNorm(double value);
FnAttr FnAttrNormFnNum(std::uint32_t value);
FnAttr FnAttrNormVariable(bool value);
FnAttr FnAttrNumPoints(std::uint32_t value);
FnAttr FnAttrNumYears(std::uint32_t value);
FnAttr FnAttrOCR(double value);
FnAttr FnAttrOutputParam(v7::DataParamType value);
FnAttr FnAttrPI(double value);
FnAttr FnAttrPMLFnNum(std::uint32_t value);
FnAttr FnAttrProbFnNum(std::uint32_t value);
FnAttr FnAttrRDFnNum(std::uint32_t value);
FnAttr FnAttrRDType(std::int32_t value);  // EROOT_DEPTH_TYPE
FnAttr FnAttrResWC(double value);
FnAttr FnAttrReview(bool value);
FnAttr FnAttrReviewType(const std::wstring& value);
FnAttr FnAttrSD(double value);
FnAttr FnAttrSampleBySplice(bool value);
FnAttr FnAttrSampleMatlCyclicNumber(std::int32_t value);  // FnEstCyclicNumberType::eSampleMatl
FnAttr FnAttrSampleMatlEMod(std::int32_t value);  // FnEstEModType::eSampleMatl
FnAttr FnAttrSampleMatlGmax(std::int32_t value);  // FnEstGmaxType::eSampleMatl
FnAttr FnAttrSampleMatlKalpha(std::int32_t value);  // FnEstKalphaType::eSampleMatl
FnAttr FnAttrSampleMatlKsigma(std::int32_t value);  // FnEstKsigmaType::eSampleMatl
FnAttr FnAttrSampleMatlLAI(std::int32_t value);  // FnEstLAIType::eGrassQuality
FnAttr FnAttrSampleMatlMFSPWP(std::int32_t value);  // FnEstMFSPWPType::eSampleMatl
FnAttr FnAttrSampleMatlRecModulus(std::int32_t value);  // FnEstRecModulusType::eSampleMatl
FnAttr FnAttrSampleMatlThermalKvsTemp(std::int32_t value);  // FnEstThermalKvsTempType::eSampleMatl
FnAttr FnAttrSampleMatlUnfrozenWC(std::int32_t value);  // FnEstUnfrozenWCType::eSampleMatl
FnAttr FnAttrSampleMatlVolWC(std::int32_t value);  // FnEstVolWCType::eSampleMatl
FnAttr FnAttrSamplingDistance(double value);
FnAttr FnAttrSatWC(double value);
FnAttr FnAttrScale(double value);
FnAttr FnAttrShape(double value);
FnAttr FnAttrSigma3(double value);
FnAttr FnAttrSigmaC(double value);
FnAttr FnAttrSmooth(std::uint32_t value);
FnAttr FnAttrSteps(std::uint32_t value);
FnAttr FnAttrStressBoundFnNum(std::uint32_t value);
FnAttr FnAttrSuctionLimit(double value);
FnAttr FnAttrTCFrozen(double value);
FnAttr FnAttrTCUnfrozen(double value);
FnAttr FnAttrTailAfter(const math::fn::TailType& value);
FnAttr FnAttrTailBefore(const math::fn::TailType& value);
FnAttr FnAttrTan(double value);
FnAttr FnAttrTanFnNum(std::uint32_t value);
FnAttr FnAttrTanVariable(bool value);
FnAttr FnAttrTension(std::uint32_t value);
FnAttr FnAttrThermBoundFnNum(std::uint32_t value);
FnAttr FnAttrThermModFnNum(std::uint32_t value);
FnAttr FnAttrThermoDataSet(std::uint32_t value);
FnAttr FnAttrType(const std::wstring& value);
FnAttr FnAttrValue(double value);
FnAttr FnAttrVoidRatio(double value);
FnAttr FnAttrVolWCEstMethod(std::int32_t value);  // FnEstVolWCType::eEstMethod
FnAttr FnAttrVolWCFnNum(std::uint32_t value);
FnAttr FnAttrZ(double value);
}  // namespace v7
